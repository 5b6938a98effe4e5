#pragma once

#include "records/data/settings.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace storage {
class Recordset;
}

// A list of records is a row of data: where its rows come from, how they are ordered and what is
// shown of them. Windows make panes of it (records/screens/list_pane.h), data rooms open it
// (record_list.h).
namespace records {

// What a list shows of its table.
struct ListFilter {
    QString condition; // " WHERE ..."; empty: all rows
    QString ownOrder; // an order of the filter's own, which stands until a column header is clicked
    QString caption;
    QString source = {}; // a whole statement that stands in for the list's own SELECT

    bool operator==(const ListFilter& other) const = default;
};

// A list's order: its ORDER BY clause without direction and tie-break.
struct ListOrder {
    QString clause; // " ORDER BY ..."
    bool descending = false;

    bool operator==(const ListOrder& other) const = default;
};

struct ListColumn {
    QString header;
    QString field;       // of the statement's rows
    QString clause = {}; // " ORDER BY ..."; empty: clicking the header does nothing
    int width = 0;       // pixels at first; 0: as the list has it
    bool isText = false; // takes its share of what the other columns leave
    // What the cell shows, where that is not what the column is ordered by.
    QString shown = {};
};

// What the counters over a list say: 合計, 現在 and 最大.
enum class CounterPolicy {
    Rows, // rows of the table, place of the selected row, rows listed
    Pages // rows listed, page shown, pages
};

struct ListDescription {
    QString statement; // up to the condition
    // Fields of the record's key.
    QString updateId;
    QString mark;
    QString id;
    QString stamp;
    QList<ListColumn> columns;
    QString check = {};    // the field of the check box: ticked when 1; empty: no check boxes
    QString tieBreak = {}; // " ,..."; always ascending

    // Settings: the order's number among `choices`, 1 for descending, and the rows of a page.
    Setting order = {};
    Setting descending = {};
    Setting pageRows = {};
    QStringList choices = {}; // clauses by number; another number means the first

    CounterPolicy counters = CounterPolicy::Rows;
    QString countQuery = {}; // rows of the table in all, for CounterPolicy::Rows
    QString countField = {};

    // What a row is to be emphasised as, from 1 on; 0: nothing. May be empty. `rowOnPage` counts
    // from 0.
    std::function<int(const storage::Recordset& row, int rowOnPage, const Settings& settings,
                      QDate today)>
        emphasis = {};
};

// The order that stands until a header is clicked: nothing where the filter brings its own.
std::optional<ListOrder> standingOrder(const ListDescription& list, const ListFilter& filter,
                                       const Settings& settings);
// The order of a column; nothing for one that has none.
std::optional<ListOrder> orderOf(const ListDescription& list, int column, bool descending);
// The column that an order is shown at; -1 for none.
int columnOf(const ListDescription& list, const ListOrder& order);
// The statement of a list: `clicked` is the order of a clicked header.
QString listStatement(const ListDescription& list, const ListFilter& filter,
                      const std::optional<ListOrder>& clicked, const Settings& settings);

// The statements that give the rows of such a list whose cell in the ordered column begins with a
// text, those that begin so in what the column is ordered by first. None where no column orders it
// or the filter brings a statement of its own.
QStringList beginningWith(const ListDescription& list, const ListFilter& filter,
                          const std::optional<ListOrder>& clicked, const Settings& settings,
                          const QString& text);

} // namespace records
