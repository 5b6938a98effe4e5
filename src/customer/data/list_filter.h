#pragma once

#include <QString>

#include <span>

namespace customer {

// What a list shows of its table.
struct ListFilter {
    QString condition; // " WHERE ..."; empty: all rows
    QString ownOrder; // an order of the filter's own, which stands until a column header is clicked
    QString caption;
    QString source = {}; // a whole statement that stands in for the list's own SELECT

    bool operator==(const ListFilter& other) const = default;
};

// A list's order: the column of the list, from 0, and its direction.
struct SortOrder {
    int column = 0;
    bool descending = false;

    bool operator==(const SortOrder& other) const = default;
};

// The clause of an order; the tie-break is always ascending.
QString sortClause(std::span<const QString> clauses, const SortOrder& order,
                   const QString& tieBreak);
// The order that two settings mean: `choices` gives the column of each value of the first; a value
// that is none of them means the first.
SortOrder sortOf(std::span<const int> choices, int choice, int descending);
// The statement of a list. `order` is left out where the filter's own order stands.
QString listStatement(const QString& source, const ListFilter& filter, bool clicked,
                      const QString& order);

} // namespace customer
