#include "ui/pane_keys.h"

#include <QAction>
#include <QApplication>
#include <QSplitter>
#include <QTabWidget>

#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace ui {

PaneKeys::PaneKeys(QWidget* window, const QList<QWidget*>& panes)
    : QObject(window), m_window(window), m_panes(panes)
{
    connect(addKey(u"次の欄へ(&N)"_s, Qt::Key_F6), &QAction::triggered, this, [this] { step(1); });
    connect(addKey(u"前の欄へ(&P)"_s, Qt::SHIFT | Qt::Key_F6), &QAction::triggered, this,
            [this] { step(-1); });
}

QAction* PaneKeys::addKey(const QString& caption, const QKeySequence& key)
{
    auto* const action = new QAction(caption, this);
    action->setShortcut(key);
    m_window->addAction(action);
    m_actions.append(action);
    return action;
}

namespace {

// Turns every tab control around a widget to the page that the widget stands on.
void showPage(const QWidget& target)
{
    for (QWidget* page = target.parentWidget(); page; page = page->parentWidget()) {
        for (QWidget* around = page->parentWidget(); around; around = around->parentWidget()) {
            if (auto* const tabs = qobject_cast<QTabWidget*>(around);
                tabs && tabs->indexOf(page) >= 0)
                tabs->setCurrentWidget(page);
        }
    }
}

} // namespace

void PaneKeys::addNumber(int number, QWidget* target, const QString& name)
{
    const QKeySequence keys(QKeyCombination(Qt::ControlModifier, Qt::Key(Qt::Key_0 + number)));
    connect(addKey(name + u"へ(&"_s + QString::number(number) + u')', keys), &QAction::triggered,
            target, [target] {
                showPage(*target);
                target->setFocus(Qt::ShortcutFocusReason);
            });
}

int PaneKeys::paneWithFocus() const
{
    const QWidget* const focus = QApplication::focusWidget();
    for (int i = 0; i < m_panes.size(); ++i) {
        if (focus && (m_panes.at(i) == focus || m_panes.at(i)->isAncestorOf(focus)))
            return i;
    }
    return -1;
}

void PaneKeys::step(int direction)
{
    const int count = static_cast<int>(m_panes.size());
    int place = paneWithFocus();
    for (int i = 0; i < count; ++i) {
        place = (place + direction + count) % count;
        QWidget* const pane = m_panes.at(place);
        if (pane->isVisible() && pane->isEnabled()) {
            pane->setFocus(Qt::ShortcutFocusReason);
            return;
        }
    }
}

void giveShare(QSplitter& splitter, int part, double share)
{
    QList<int> sizes = splitter.sizes();
    const int total = std::accumulate(sizes.begin(), sizes.end(), 0);
    const int others = total - sizes.at(part);
    const int wanted = static_cast<int>(std::lround(total * share));
    if (total == 0 || sizes.at(part) >= wanted)
        return;
    for (int i = 0; i < sizes.size(); ++i)
        sizes[i] = i == part ? wanted : sizes.at(i) * (total - wanted) / qMax(1, others);
    splitter.setSizes(sizes);
}

} // namespace ui
