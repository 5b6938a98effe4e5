#pragma once

#include "storage/sql/bound.h"

#include <optional>

// What a bound condition consists of, for the choice of how its rows are found.
namespace storage::sql {

// Whether a text is looked for inside others, which no index finds.
bool isSearch(const bound::Expression& condition);
// Whether the rows are those of one record, found by its number and mark.
bool isOfOneRecord(const bound::Expression& condition);

// What the condition asks of one table alone: those of its parts that are joined by And and speak
// of no other.
struct FilterParts {
    qsizetype source = 0;
    std::vector<const bound::Expression*> parts;
    bool whole = true;      // the condition asks nothing else
    bool indexable = false; // an index may find the rows
};

// Those of the table of which an index may find the rows, or of which alone the condition speaks.
// Nothing when there is no such table, or when a row may lack its partner in a join.
std::optional<FilterParts> filterParts(const bound::SelectPart& part);

} // namespace storage::sql
