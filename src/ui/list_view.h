#pragma once

#include <QElapsedTimer>
#include <QTreeView>

#include <memory>

namespace core {
class ListSource;
}

namespace ui {

class PagedListModel;

// A list of records: whole rows, extended selection, header clicks that ask for an order, copying.
// Everything that the mouse does can be done by keys: Enter opens, Space toggles the check box,
// Ctrl+C copies, Del asks for the row to be deleted, the menu key opens the context menu, letters
// go to the row that begins with them, and the arrow keys go on at the end of a page.
class ListView : public QTreeView {
    Q_OBJECT

public:
    // For pageWanted().
    static constexpr int SameRow = -2;

    explicit ListView(QWidget* parent = nullptr);

    // Takes a model that must live as long as the view.
    void setListModel(PagedListModel* model);

    // Row colours are meant for a light ground: keeps one also under a dark theme.
    void keepLightBase();

    // The key of the row that stands for the selection; empty when there is none.
    QString currentKey() const;
    // Selects one row, makes it current and visible.
    void selectRow(int row);
    // Shows the rows of another source, from the top, with no row selected.
    void fill(std::shared_ptr<core::ListSource> source);
    // Shows the same list read anew, on its source's page: the current row and the scroll position
    // stay when the same record still stands there or nearby. `row`: where it stands now, if known.
    void refill(std::shared_ptr<core::ListSource> source, int row = -1);
    // Turns to a page of the source.
    void turnTo(qint64 page);
    // The selected rows as text; also put on the clipboard by copySelection().
    QString selectedText() const;
    void copySelection();
    qsizetype selectedRows() const;
    // What stands in the middle of the list while it has no rows.
    void setHint(const QString& hint);
    // The headers and a row and a half: a window may be low.
    QSize minimumSizeHint() const override;

signals:
    // A row was double-clicked, or Enter pressed on it.
    void opened(int row);
    // Another row has become the current one, or none (-1). Not given when the list is refilled and
    // the same record stays current.
    void currentRowChanged(int row);
    // A row was chosen: it has become the current one by keys (column -1), or it was clicked in a
    // column, which counts once, when the button is let go or the context menu is asked for.
    // `another`: it was not the current row before. No row (-1): there is no current row any more.
    void chosen(int row, int column, bool another);
    // How many rows are selected has changed.
    void selectedRowsChanged();
    // Rows were copied.
    void copied(qsizetype rows);
    // The current row is to be deleted.
    void deletionAsked();
    // Another page is wanted, so many pages on. The row that gets selected there: the first (0),
    // the last (-1), or the one at the same place (SameRow).
    void pageWanted(int pages, int row);
    // Letters were typed, one after the other, to go to the row that begins with them.
    void typed(const QString& beginning);
    // A column's header was clicked.
    void headerClicked(int column);
    // The context menu is wanted, by mouse or by key, at a point of the screen.
    void menuRequested(const QPoint& screenPoint);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    // The base class would read the whole list.
    void keyboardSearch(const QString& letters) override;
    void reset() override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    void tellCurrent(int row);
    void endPress();
    bool turnByKey(const QKeyEvent& event);
    void type(const QString& letters);
    bool toggleCheck();
    bool isOnCheckBox(const QPoint& place) const;
    void findAgain(const QString& key, int row, bool wasSelected);

    PagedListModel* m_model = nullptr;
    bool m_refilling = false;
    bool m_pressed = false;        // a mouse button is down
    bool m_pressedAnother = false; // and has chosen another row
    int m_pressedColumn = -1;
    QString m_hint;
    QString m_typed;
    QElapsedTimer m_sinceTyped;
};

} // namespace ui
