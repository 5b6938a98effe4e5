#include "core/screens/top.h"

#include "core/data/clock.h"
#include "core/data/program_version.h"
#include "core/data/shared.h"
#include "core/data/splash_colour.h"
#include "core/screens/brand_band.h"
#include "core/screens/screen_flow.h"
#include "ui/icons.h"
#include "ui_top.h"

#include <QCloseEvent>
#include <QPainter>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace core {

namespace {

constexpr int ShownFor = 3000; // ms
constexpr int BandHeight = 40;
constexpr int LargeSign = 136;

} // namespace

top::top(Shared& shared, ScreenFlow& flow, QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint),
      m_ui(new Ui::top),
      m_shared(shared),
      m_flow(flow)
{
    m_ui->setupUi(this);
    m_ui->Label1->setText(u"バージョン "_s + versionText());
    colourLabel2();
    m_ui->Label1->repaint();
    m_ui->Label2->repaint();
    Timer1.setSingleShot(true);
    connect(&Timer1, &QTimer::timeout, this, &QWidget::close);
    Timer1.start(ShownFor);
}

top::~top() = default;

void top::colourLabel2()
{
    QRandomGenerator random(static_cast<quint32>(m_shared.clock.now().toMSecsSinceEpoch()));
    const int index = splashColourIndex(random.generateDouble());
    QPalette palette = m_ui->Label2->palette();
    palette.setColor(QPalette::WindowText, QColor(paletteColour(index)));
    m_ui->Label2->setPalette(palette);

    palette.setColor(QPalette::WindowText, BrandDark);
    m_ui->Label3->setPalette(palette);
    palette.setColor(QPalette::WindowText, Qt::white);
    m_ui->Label1->setPalette(palette);
}

void top::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QLinearGradient ground(0, 0, 0, height());
    ground.setColorAt(0, Qt::white);
    ground.setColorAt(1, BrandPale.darker(106));
    painter.fillRect(rect(), ground);
    painter.fillRect(0, height() - BandHeight, width(), BandHeight, BrandDark);
    painter.fillRect(0, height() - BandHeight - 3, width(), 3, BrandAccent);
    painter.setPen(BrandDark);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    const int above = (height() - BandHeight - LargeSign) / 2;
    ui::icon(u"corvane"_s).paint(&painter, QRect(36, above, LargeSign, LargeSign));
}

void top::mousePressEvent(QMouseEvent*)
{
    close();
}

void top::keyPressEvent(QKeyEvent*)
{
    close();
}

void top::closeEvent(QCloseEvent* event)
{
    Timer1.stop();
    event->accept();
    m_flow.show(Screen::Menu);
}

} // namespace core
