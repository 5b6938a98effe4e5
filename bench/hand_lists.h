#pragma once

#include "bare_file.h"

#include "customer/data/customer_file.h"
#include "records/data/index_node.h"
#include "records/data/record_list.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

// The lists of customers and cases with their orders and filters, as the program opens them and as
// somebody who knows the file would write them by hand.
namespace bench {

struct HandOrder {
    QString name;
    int column = 0;        // of the list
    QString table;         // the column's: its alias in the statements
    QString ordered;       // the column
    QStringList functions; // whose results have this order
};

struct HandFilter {
    QString name;
    records::ListFilter filter;
    // Each gives the filter's rows; a tilde stands before what an index of it is over. None: all
    // rows.
    QStringList conditions;
    QString onlyValueOf = {};        // a column that holds the same in all these rows
    records::Settings settings = {}; // with which the list is opened
};

// A table in the order of whose index a list can be read, the others joined to it.
struct HandSource {
    QString table; // its alias
    QString name;
    QString from; // an @ stands where an index of the table can be named
};

struct HandList {
    QString name;
    QString columns; // the first of them is the update ID
    QStringList aliases;
    QList<HandSource> sources;
    QString ofRow; // reads a row by the addresses in the tables of the aliases
    QString tieBreak;
    QList<HandOrder> orders;
    QList<HandFilter> filters;
    const records::ListDescription* list = nullptr;
    customer::CustomerFile* file = nullptr;

    // As the program opens it, in the order of a column.
    std::unique_ptr<records::RecordList> open(const HandFilter& filter, int column,
                                              bool descending) const;
    int pageRows(const HandFilter& filter) const { return filter.settings[list->pageRows]; }
};

HandList customerList(customer::CustomerFile& file, QDate today);
HandList caseList(customer::CustomerFile& file);

// What the node of an index with a caption shows.
records::ListFilter filterOf(const QList<records::IndexNode>& nodes, const QString& caption,
                             const records::Settings& settings, QDate today);

// A stretch of a list's rows.
struct Window {
    qint64 offset = 0;
    qint64 rows = 0;
};

// One way to the rows of a list: what is read in which order under which condition.
struct HandWay {
    QString from;
    QString condition;
    QString order;

    // The rows as they are found.
    HandWritten wide(const HandList& list, const Window& window) const;
    // Their addresses first, to which the rows are joined.
    HandWritten narrow(const HandList& list, const Window& window) const;
    // Their addresses first, then row after row.
    HandWritten inTwoSteps(const HandList& list, const Window& window) const;
    // Counts the rows of all pages.
    QString count() const;
};

// The ways that differ: in the order of an index, filtered on the way; as the filter finds the
// rows, sorted then; as the engine chooses.
std::vector<HandWay> handWays(const BareFile& bare, const HandList& list, const HandOrder& order,
                              bool descending, const HandFilter& filter);

} // namespace bench
