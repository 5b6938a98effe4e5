#pragma once

#include <QString>

struct sqlite3;

namespace storage::engine::sqlite {

// The functions that statements and indexes use. To be registered before the first statement: the
// engine reads an index over a function it does not know as damage.
//
//   corvane_fold(x)               the folded text; Null and numbers as they are
//   corvane_key(x)                the sort key (a blob); Null and numbers as they are
//   corvane_like(pattern, x, …)   1 when the joined parts match, else 0; Null when the pattern or
//                                 the only part is Null
//   corvane_join(x, …)            the parts as one text, Null as empty text
//   corvane_stamp(old, new)       the later of `new` and one millisecond after `old`
//   corvane_fitted(x, type, length, column, label, row)
//                                 the value as a column of that schema::ColumnType and length keeps
//                                 it; fails where it cannot, naming the column and the row
bool registerFunctions(sqlite3* handle);

// What one of these functions has said for the user when a statement failed by it; empty when the
// last failure is the engine's own.
QString ownMessage(sqlite3* handle);

} // namespace storage::engine::sqlite
