#pragma once

#include "core/data/list_source.h"
#include "storage/connection.h"
#include "storage/recordset.h"

namespace bench {

// Ends the program when a step of the storage surface has failed.
void require(bool holds, const storage::Connection& file);

// Reads every value of the rows from the current one on, at most so many; gives their number.
qint64 readRows(storage::Recordset& rows, qint64 atMost);

// The rows of the page that a list shows.
QList<core::ListRow> readPage(core::ListSource& list);

} // namespace bench
