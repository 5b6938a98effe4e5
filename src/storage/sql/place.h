#pragma once

#include "storage/sql/finding.h"

namespace storage::sql {

// Tells where a row stands in the order of all rows of a table, and which rows stand beside it, by
// what the terms of the order are in that row: an index leads to each of these rows, and the engine
// counts those before it without giving them. Finding::place says how.

enum class Side { Before, Behind };

// Whether the row's terms are Null: one row with a number for each, 0 when it is not. No row where
// there is none with this address.
Emitted nullTerms(const Finding::Place& place, qint64 address, const Dialect& dialect);

// One row: how many rows stand before the row, and how many cannot be told from it by the order,
// itself among them. `nulls`: which of its terms are Null.
Emitted countBefore(const Finding::Place& place, qint64 address, const std::vector<bool>& nulls,
                    const Dialect& dialect);

// The addresses of the rows on one side of the row, the nearest first: those of the first
// statement, then those of the next.
QList<Emitted> beside(const Finding::Place& place, qint64 address, const std::vector<bool>& nulls,
                      Side side, const Dialect& dialect);

} // namespace storage::sql
