#pragma once

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
bool registerFunctions(sqlite3* handle);

} // namespace storage::engine::sqlite
