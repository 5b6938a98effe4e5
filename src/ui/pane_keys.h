#pragma once

#include <QList>
#include <QObject>

class QAction;
class QKeySequence;
class QSplitter;
class QWidget;

namespace ui {

// F6 and Shift+F6 walk the focus through the panes of a window, Ctrl+1, Ctrl+2 … go straight to
// those that are numbered. Panes that are not to be seen are passed over.
class PaneKeys : public QObject {
    Q_OBJECT

public:
    // In the order of the walk.
    PaneKeys(QWidget* window, const QList<QWidget*>& panes);

    // Ctrl+`number` gives the focus to a widget, which the entry calls by this name.
    void addNumber(int number, QWidget* target, const QString& name);
    // All of it as entries of a menu.
    const QList<QAction*>& actions() const { return m_actions; }

private:
    QAction* addKey(const QString& caption, const QKeySequence& key);
    void step(int direction);
    int paneWithFocus() const;

    QWidget* m_window;
    QList<QWidget*> m_panes;
    QList<QAction*> m_actions;
};

// Gives one part of a splitter at least this share of its length; the others share the rest as they
// did before.
void giveShare(QSplitter& splitter, int part, double share);

} // namespace ui
