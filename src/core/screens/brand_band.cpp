#include "core/screens/brand_band.h"

#include "core/data/messages.h"
#include "ui/icons.h"

#include <QLinearGradient>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace core {

namespace {

constexpr int Height = 64;
constexpr int Margin = 16;
constexpr int Sign = 36;

} // namespace

BrandBand::BrandBand(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(QString::fromUtf16(AppTitleText));
}

QSize BrandBand::sizeHint() const
{
    return {320, Height};
}

void BrandBand::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QLinearGradient ground(0, 0, width(), 0);
    ground.setColorAt(0, BrandDark);
    ground.setColorAt(1, BrandMiddle);
    painter.fillRect(rect(), ground);
    painter.fillRect(0, height() - 3, width(), 3, BrandAccent);

    const int top = (height() - 3 - Sign) / 2;
    ui::icon(u"corvane"_s).paint(&painter, QRect(Margin, top, Sign, Sign));
    QFont name = font();
    name.setPointSizeF(font().pointSizeF() * 1.9);
    name.setBold(true);
    painter.setFont(name);
    painter.setPen(Qt::white);
    painter.drawText(rect().adjusted(Margin + Sign + 12, 0, -Margin, -3),
                     Qt::AlignVCenter | Qt::AlignLeft, QString::fromUtf16(AppTitleText));
}

} // namespace core
