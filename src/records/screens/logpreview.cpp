#include "records/screens/logpreview.h"

#include "core/data/messages.h"
#include "text/lines.h"
#include "ui/twips.h"
#include "ui/window_placement.h"
#include "ui_logpreview.h"

#include <QAction>
#include <QClipboard>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

namespace records {
namespace {

constexpr int GripWidth = 10; // pixels from the edge of the text

int twips(int pixels)
{
    return static_cast<int>(ui::twipsFromPixels(pixels));
}

} // namespace

logpreview::logpreview(DataFile& file, const LogTable& log, QWidget* parent)
    : QWidget(parent, Qt::Tool),
      m_ui(std::make_unique<Ui::logpreview>()),
      m_file(file),
      m_log(log),
      m_Rcopy(new QAction(u"コピー"_s, this)),
      m_temae(new QAction(this)),
      m_ichi(new QAction(u"位置サイズ保存"_s, this))
{
    m_ui->setupUi(this);
    setAttribute(Qt::WA_ShowWithoutActivating); // the keyboard stays with the list
    m_Rcopy->setObjectName(u"Rcopy"_s);
    m_temae->setObjectName(u"temae"_s);
    m_ichi->setObjectName(u"ichi"_s);
    connect(m_Rcopy, &QAction::triggered, this, &logpreview::Rcopy_Click);
    connect(m_temae, &QAction::triggered, this, &logpreview::temae_Click);
    connect(m_ichi, &QAction::triggered, this, &logpreview::ichi_Click);
    m_ui->rogu->viewport()->installEventFilter(this);
    m_ui->rogu->installEventFilter(this);
    m_ui->rogu->viewport()->setMouseTracking(true); // for the cursor over the grip
    m_ui->rogu->setToolTip(u"一番上の行か端をドラッグすると移動します。\n"
                           "Ctrlキーを押しながらなら、どこでもドラッグできます。"_s);
    const PreviewPlace place = readPreviewPlace(file);
    placeWindow(place);
    stayOnTop(place.onTop);
}

logpreview::~logpreview() = default;

void logpreview::placeWindow(const PreviewPlace& place)
{
    const QRect kept(ui::pixelsFromTwips(place.left), ui::pixelsFromTwips(place.top),
                     ui::pixelsFromTwips(place.width), ui::pixelsFromTwips(place.height));
    // A place that was never saved is 0, 0: it is placed beside the list then.
    m_hasKeptPlace = place.left != 0 || place.top != 0;
    resize(kept.size());
    if (m_hasKeptPlace)
        ui::placeOnScreen(*this, {kept.topLeft(), kept.size().grownBy(ui::frameOf(*this))});
}

void logpreview::showEntry(const core::RecordKey& key)
{
    m_ui->rogu->setPlainText(text::toWidgetLines(previewText(m_file, m_log, key)));
}

void logpreview::RightMenu(const QPoint& screenPoint)
{
    m_temae->setText(m_onTop ? u"常に手前解除"_s : u"常に手前表示"_s);
    auto* const menu = new QMenu(this);
    menu->setObjectName(u"RightMenu"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions({m_Rcopy, m_temae, m_ichi});
    menu->popup(screenPoint);
}

void logpreview::Rcopy_Click()
{
    QGuiApplication::clipboard()->setText(text::toStoredLines(m_ui->rogu->toPlainText()));
}

void logpreview::temae_Click()
{
    if (savePreviewOnTop(m_file, !m_onTop))
        stayOnTop(!m_onTop);
}

// The window system forgets the window when this changes; it is shown again where it stood.
void logpreview::stayOnTop(bool onTop)
{
    m_onTop = onTop;
    const bool shown = isVisible();
    const QPoint place = pos();
    setWindowFlag(Qt::WindowStaysOnTopHint, onTop);
    if (!shown)
        return;
    move(place);
    show();
}

void logpreview::ichi_Click()
{
    if (!m_file.messages.confirm(u"現在の表示位置・サイズを保存しますか？"_s))
        return;
    PreviewPlace place;
    m_hasKeptPlace = true;
    place.left = twips(pos().x());
    place.top = twips(pos().y());
    place.width = twips(width());
    place.height = twips(height());
    savePreviewPlace(m_file, place);
}

// The head line and the edges of the text: the whole window is text, so it is held there, or
// anywhere while Ctrl is held.
bool logpreview::isGrip(const QPoint& place) const
{
    const QRect text = m_ui->rogu->viewport()->rect().adjusted(
        GripWidth, GripWidth + fontMetrics().lineSpacing(), -GripWidth, -GripWidth);
    return !text.contains(place);
}

// True when the mouse has moved the window, or began or ended to.
bool logpreview::drag(const QMouseEvent& mouse)
{
    const bool held =
        isGrip(mouse.position().toPoint()) || mouse.modifiers().testFlag(Qt::ControlModifier);
    if (mouse.type() == QEvent::MouseButtonPress && mouse.button() == Qt::LeftButton && held) {
        m_dragged = true;
        m_grip = mouse.globalPosition().toPoint() - pos();
        return true;
    }
    if (mouse.type() == QEvent::MouseMove && !m_dragged && mouse.buttons() == Qt::NoButton)
        m_ui->rogu->viewport()->setCursor(held ? Qt::SizeAllCursor : Qt::IBeamCursor);
    if (!m_dragged)
        return false;
    if (mouse.type() == QEvent::MouseMove)
        Fmove(mouse.globalPosition().toPoint());
    else if (mouse.type() == QEvent::MouseButtonRelease)
        m_dragged = false;
    return true;
}

bool logpreview::eventFilter(QObject* watched, QEvent* event)
{
    const auto* const mouse =
        watched == m_ui->rogu->viewport() ? dynamic_cast<QMouseEvent*>(event) : nullptr;
    if (event->type() == QEvent::ContextMenu && watched == m_ui->rogu) {
        const auto* const asked = static_cast<QContextMenuEvent*>(event);
        if (asked->reason() != QContextMenuEvent::Mouse) // the mouse has had its menu already
            RightMenu(asked->globalPos());
        return true;
    }
    if (mouse && mouse->type() == QEvent::MouseButtonPress && mouse->button() == Qt::RightButton) {
        RightMenu(mouse->globalPosition().toPoint());
        return true;
    }
    return (mouse && drag(*mouse)) || QWidget::eventFilter(watched, event);
}

void logpreview::Fmove(const QPoint& screenPoint)
{
    move(screenPoint - m_grip);
}

void logpreview::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    if (event->isAccepted())
        emit closed();
}

} // namespace records
