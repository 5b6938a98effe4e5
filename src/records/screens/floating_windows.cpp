#include "records/screens/floating_windows.h"

#include "core/data/messages.h"
#include "records/screens/logpreview.h"
#include "records/screens/selection.h"
#include "ui/twips.h"
#include "ui/window_placement.h"

#include <QAction>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace records {

FloatingWindows::FloatingWindows(const Desk& desk, Settings& settings, const Selection& selection,
                                 Description description, DetailWindow* detail, logpreview* preview)
    : QObject(detail->parent()),
      m_desk(desk),
      m_settings(settings),
      m_selection(selection),
      m_description(std::move(description)),
      m_detail(detail),
      m_preview(preview),
      m_ichi(new QAction(m_description.placeCaption, this))
{
    for (const WindowMode& mode : std::as_const(m_description.details)) {
        m_actions.append(modeAction(mode));
        auto& timer = m_timers.emplace_back(std::make_unique<QTimer>());
        timer->setSingleShot(true);
        timer->setInterval(0);
        connect(timer.get(), &QTimer::timeout, this,
                [this, list = mode.list] { showDetailOf(list); });
    }
    m_actions.append(modeAction(m_description.preview));
    m_ichi->setObjectName(u"ichi"_s);
    connect(m_ichi, &QAction::triggered, this, &FloatingWindows::ichi_Click);
    connect(m_detail, &DetailWindow::closed, this, &FloatingWindows::detailClosed);
    connect(m_preview, &logpreview::closed, this, [this] {
        if (!m_closing)
            m_actions.last()->setChecked(false);
    });
}

QAction* FloatingWindows::modeAction(const WindowMode& mode)
{
    auto* const made = new QAction(mode.caption, this);
    made->setObjectName(mode.action);
    made->setCheckable(true);
    made->setChecked(m_settings[mode.shown] == 1);
    connect(made, &QAction::toggled, this, [this, mode](bool on) { setMode(mode, on); });
    return made;
}

bool FloatingWindows::isPreview(const WindowMode& mode) const
{
    return mode.shown == m_description.preview.shown;
}

void FloatingWindows::setMode(const WindowMode& mode, bool on)
{
    if ((m_settings[mode.shown] == 1) == on)
        return;
    m_settings.set(mode.shown, on ? 1 : 0);
    saveSettings(m_desk.file, {{mode.shown, on ? 1 : 0}});
    if (isPreview(mode)) {
        if (on && m_selection.has(mode.list))
            openPreview();
        else
            m_preview->hide();
    } else if (on) {
        showDetailOf(mode.list);
    } else {
        const bool wanted =
            std::ranges::any_of(m_description.details, [this](const WindowMode& each) {
                return m_settings[each.shown] == 1;
            });
        m_detail->setVisible(wanted && m_detail->isVisible());
    }
}

// Whether a click in a column opens a window; by key any column does.
bool FloatingWindows::opens(const WindowMode& mode, int column) const
{
    const int wanted = m_settings[mode.clickColumn];
    return m_settings[mode.shown] == 1 && (wanted == 0 || column == ByKey || column == wanted - 1);
}

void FloatingWindows::chosen(int list, int column)
{
    if (list == m_description.preview.list)
        showPreview(column);
    for (std::size_t i = 0; i < m_timers.size(); ++i) {
        const WindowMode& mode = m_description.details.at(static_cast<qsizetype>(i));
        if (mode.list == list && m_selection.has(list)
            && (opens(mode, column) || m_detail->isVisible()))
            m_timers[i]->start();
    }
}

// Each time it goes to the kept place. As long as none was kept, it stays where the user has moved
// it.
void FloatingWindows::showDetailOf(int list)
{
    if (!m_selection.has(list) || !m_detail->showRecord(list, m_selection.key(list)))
        return;
    const int left = m_settings[m_description.left];
    const int top = m_settings[m_description.top];
    if (left != 0 || top != 0)
        m_detail->moveToPlace(left, top);
    else if (!m_detail->isVisible())
        placeFirst(*m_detail, *m_preview, list);
    m_detail->show();
}

// Where it covers neither the list that it explains nor the tool bar, nor the other window, as far
// as there is room for that; once it was open, where the user has left it.
void FloatingWindows::placeFirst(QWidget& window, const QWidget& other, int list)
{
    if (m_placed.contains(&window)) {
        ui::placeOnScreen(window, ui::outerRectOf(window));
        return;
    }
    m_placed.insert(&window);
    const auto onScreen = [](const QWidget& shown) {
        return QRect(shown.mapToGlobal(QPoint()), shown.size());
    };
    QList<QRect> covered;
    for (const QWidget* const part : {m_description.lists.value(list), m_description.toolBar}) {
        if (part && part->isVisible())
            covered.append(onScreen(*part));
    }
    const QRect outer = ui::outerRectOf(window);
    const QRect area = window.screen()->availableGeometry();
    const QSize least = window.minimumSizeHint().grownBy(ui::frameOf(window));
    std::optional<QRect> place;
    if (other.isVisible())
        place = ui::placeBeside(area, outer.size(), least,
                                covered + QList<QRect>{other.frameGeometry()});
    if (!place)
        place = ui::placeBeside(area, outer.size(), least, covered);
    QRect corner = outer;
    corner.moveBottomRight(area.bottomRight());
    ui::placeOnScreen(window, place.value_or(corner));
}

void FloatingWindows::detailClosed()
{
    if (m_closing)
        return;
    for (qsizetype i = 0; i < m_description.details.size(); ++i)
        m_actions.at(i)->setChecked(false);
}

void FloatingWindows::showPreview(int column)
{
    const WindowMode& mode = m_description.preview;
    if (m_settings[mode.shown] != 1)
        return;
    if (!m_selection.has(mode.list)) {
        m_preview->hide();
    } else if (m_preview->isVisible() || opens(mode, column)) {
        openPreview();
    }
}

void FloatingWindows::openPreview()
{
    m_preview->showEntry(m_selection.key(m_description.preview.list));
    if (!m_preview->isVisible()) {
        if (m_preview->hasKeptPlace())
            m_placed.insert(m_preview);
        placeFirst(*m_preview, *m_detail, m_description.preview.list);
    }
    m_preview->show();
}

void FloatingWindows::refill()
{
    m_detail->refill();
    if (m_preview->isVisible())
        m_preview->showEntry(m_selection.key(m_description.preview.list));
}

void FloatingWindows::ichi_Click()
{
    if (!m_detail->isVisible()) {
        m_desk.file.messages.tell(m_description.notShown);
        return;
    }
    if (!m_desk.file.messages.confirm(u"現在の表示位置を保存しますか？"_s))
        return;
    saveSettings(m_desk.file, m_settings,
                 {{m_description.left, static_cast<int>(ui::twipsFromPixels(m_detail->pos().x()))},
                  {m_description.top, static_cast<int>(ui::twipsFromPixels(m_detail->pos().y()))}});
}

void FloatingWindows::activateDetail()
{
    for (qsizetype i = 0; i < m_description.details.size() && !m_detail->isVisible(); ++i) {
        const int list = m_description.details.at(i).list;
        if (!m_selection.has(list))
            continue;
        m_actions.at(i)->setChecked(true); // which opens them, unless it was checked already
        showDetailOf(list);
    }
    if (m_detail->isVisible())
        m_detail->activateWindow();
}

void FloatingWindows::closeAll()
{
    m_closing = true;
    for (const auto& timer : m_timers)
        timer->stop();
    m_detail->close();
    m_preview->close();
}

} // namespace records
