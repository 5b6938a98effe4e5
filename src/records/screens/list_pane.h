#pragma once

#include "records/data/list_description.h"
#include "records/data/record_table.h"
#include "ui/paged_list.h"

#include <QWidget>

#include <functional>
#include <memory>

class QAbstractButton;
class QMenu;

namespace Ui {
class list_pane;
}
namespace ui {
class ListView;
class SpareWidth;
} // namespace ui

namespace records {

class Selection;

// What a pane is made of besides its list's description.
struct ListPaneParts {
    // Names of its controls, and how it is called in captions, tips and to a screen reader.
    QString list, pages, counters, caption, option, title;
    int number = 0;     // of the list in the selection
    QString titleField; // the field whose text stands for a record in captions
    // The records whose check box is ticked here; null: the check boxes only show.
    const RecordTable* table = nullptr;
    QHash<int, ui::Emphasis> looks = {}; // by emphasis number
    // What an empty list says: while nothing is shown, and where a filter has no rows; may be
    // empty.
    QString notShown = {};
    std::function<QString(const ListFilter& filter)> noRows = {};
};

// A list of a main screen: option button, caption and counters over it, the bar that turns its
// pages under it. It is ordered by clicks on its headers: a click orders by the column, a second
// one turns the order round; the selected record stays selected and is turned to.
class ListPane : public QWidget {
    Q_OBJECT

public:
    explicit ListPane(QWidget* parent = nullptr);
    ~ListPane() override;

    // To be called once; all of it lives longer than the pane.
    void initialize(Database& database, const ListDescription& list, const Settings& settings,
                    Selection& selection, const ListPaneParts& parts);
    // Puts a widget beside the list.
    void addSide(QWidget* side, const QString& splitterName);

    // Shows the rows of a filter from the first on; a clicked order stays unless the filter brings
    // its own. A filter that the engine refuses was told; the pane stays as it is then, and false
    // is given.
    bool showFilter(const ListFilter& filter);
    const ListFilter& filter() const { return m_filter; }
    bool isShown() const { return m_shown; }
    void setCaption(const QString& caption);
    // The same rows under another filter of the same meaning.
    void renameFilter(const ListFilter& filter);
    // Reads the list again; page, selection and scroll position stay.
    void refill();
    // The same, turned to where the selected record stands now; false when it cannot be read.
    bool follow();
    // Empties the list and its counters.
    void clear(const QString& caption = {});
    // Turns to a record and selects it as by a key; false when it is not among the rows.
    bool selectRecord(const core::RecordKey& key);
    void forgetSelection();
    // The column that has the check boxes, and the one whose texts say what colours say.
    void setMarkedColumns(int check, int label);
    // All columns but these.
    void showColumns(const QList<int>& hidden);

    QAbstractButton& option();
    ui::ListView& view();
    // What the context menu holds besides what every list offers.
    void setActions(const QList<QAction*>& actions) { m_actions = actions; }

signals:
    // A record was chosen, by key, by a click in a column (from 0; -1: by key), or none is any
    // more. `another`: it was not the chosen one before.
    void chosen(bool another, int column);
    // The selected record is to be deleted.
    void deletionAsked();
    // Something to be read in the status bar.
    void said(const QString& text);
    // The rows shown were counted.
    void counted(qint64 rows);

private:
    void connectList();
    void rowChosen(int row, int column, bool another);
    void tick(int row, bool ticked);
    void tickAll(const QList<int>& rows, bool ticked);
    void goTo(const QString& beginning);
    void showHint();
    void orderBy(int column);
    void showOrder();
    void showMenu(const QPoint& place);
    void writeSelection();
    std::shared_ptr<core::ListSource> open(const ListFilter& filter,
                                           const std::optional<ListOrder>& clicked);
    ui::PagedList::TableRows tableRows();

    std::unique_ptr<Ui::list_pane> m_ui;
    std::unique_ptr<ui::PagedList> m_list;
    Database* m_data = nullptr;
    const ListDescription* m_description = nullptr;
    const Settings* m_settings = nullptr;
    Selection* m_selection = nullptr;
    ListPaneParts m_parts;
    ListFilter m_filter;
    std::optional<ListOrder> m_clicked;
    bool m_shown = false;
    bool m_wasChosen = false; // since a record was to be selected
    ui::SpareWidth* m_widths = nullptr;
    QList<QAction*> m_actions;
};

} // namespace records
