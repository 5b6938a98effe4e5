#pragma once

#include <QList>
#include <QObject>

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

    // Ctrl+`number` gives the focus to a widget.
    void addNumber(int number, QWidget* target);

private:
    void step(int direction);
    int paneWithFocus() const;

    QWidget* m_window;
    QList<QWidget*> m_panes;
};

// Gives one part of a splitter at least this share of its length; the others share the rest as they
// did before.
void giveShare(QSplitter& splitter, int part, double share);

} // namespace ui
