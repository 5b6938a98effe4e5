#include "records/screens/floating_windows.h"

#include "core/data/messages.h"
#include "records/screens/logpreview.h"
#include "records/screens/selection.h"
#include "ui/twips.h"

#include <QAction>

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
        m_preview->setVisible(on && m_selection.has(mode.list));
        m_preview->showEntry(m_selection.key(mode.list));
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

// Each time it goes to the kept place. As long as none was kept, an open window stays where the
// user has moved it.
void FloatingWindows::showDetailOf(int list)
{
    if (!m_selection.has(list) || !m_detail->showRecord(list, m_selection.key(list)))
        return;
    const int left = m_settings[m_description.left];
    const int top = m_settings[m_description.top];
    if (left != 0 || top != 0 || !m_detail->isVisible())
        m_detail->moveToPlace(left, top);
    m_detail->show();
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
        m_preview->showEntry(m_selection.key(mode.list));
        m_preview->show();
    }
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
