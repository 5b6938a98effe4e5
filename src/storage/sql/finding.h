#pragma once

#include "storage/sql/compile.h"

#include <optional>

namespace storage::sql {

// How the rows of a SELECT are found in two steps: first the addresses of their tables' rows, in
// order, for which indexes or a sort of few columns will do; then these rows alone are read.
struct Finding {
    struct Source {
        QString name; // as the result's columns name their table
        QString key;  // the table's key column; empty when it has none
    };
    // The rows of one table that meet what the condition asks of that table alone.
    struct Filter {
        Emitted rows;
        qsizetype source = 0;
        bool whole = false;     // nothing else is asked of any row
        bool indexable = false; // an index may find them
    };

    // The order of all rows of one table (see place.h).
    struct Place {
        struct Term {
            QString expression;
            bool descending = false;
        };
        QList<Term> terms;
        QString address;
        QString from; // " FROM …"
    };

    QList<Source> sources; // each row has one address for each of them

    // The addresses of the rows in order; empty when they cannot be had so (a union, DISTINCT).
    Emitted inOrder;
    // The same where the condition fixes a text that the order begins with: that text is asked for
    // by its key, whose index may go on with the rest of the order. Empty when there is none.
    Emitted inOrderByKey;
    Emitted onTheWay;     // the same, but no index is read for the condition
    Emitted rowsOnTheWay; // the rows themselves, found so
    Emitted asTheyLie;    // the addresses without order
    Emitted sorted;       // in order, no index being read for it
    // In order, but only rows whose address in the source `listedSource` is in the list that takes
    // the place of the last parameter; no index is read for condition or order.
    Emitted listed;
    qsizetype listedSource = 0;
    // In order, whatever the condition asks.
    Emitted unfiltered;
    std::optional<Filter> filter;

    std::optional<Place>
        place; // only for one table's rows without condition, in an order of columns

    Emitted lastAddress; // the largest address in the source `listedSource`

    bool ordered = false;
    bool filtered = false;
    bool searches = false; // a text is looked for inside others, or there are repeats to be dropped
    // All rows of one table, without condition or order.
    bool wholeTable = false;
    // Only for a whole table: its rows with their address, those with an address above the last
    // parameter but one, up to the last parameter, in the order of the address.
    Emitted stretch;

    // What stands before and behind the addresses in a statement that reads rows by them.
    QString readHead;
    QString readTail;
    QList<Parameter> readParameters;
};

// What Compiled keeps of it for the next who opens the same list.
struct KnownFinding {
    bool isMade = false;
    std::shared_ptr<const Finding> finding;
};

// Null when the rows have no addresses (aggregates, TOP, a union or DISTINCT of several tables).
std::shared_ptr<const Finding> finding(const Compiled& rows, const Dialect& dialect);

// Reads rows by their addresses: `count` times as many as there are sources. The result's first
// column is the row's place in the list (from 0), then come the statement's columns, then the
// address for each source, Null where the row is gone.
Emitted readAt(const Finding& finding, const qint64* addresses, qsizetype count,
               const Dialect& dialect);

// No row stands in an outer join.
inline constexpr qint64 NoAddress = std::numeric_limits<qint64>::min();

} // namespace storage::sql
