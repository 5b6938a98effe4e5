#pragma once

#include "storage/schema/definitions.h"
#include "storage/sql/bound.h"
#include "storage/sql/compile.h"

// The lists of the different texts that columns hold (schema::Column::isListed): one table of ours
// for all of them, which statements do not see. A text stands in it as it is stored; Null and the
// empty text never do.
namespace storage::sql {

// That table with its index, for an engine that makes a file.
const schema::Table& listedTextsTable();
const schema::Index& listedTextsIndex();

// Of the columns that a statement writes, those whose texts are listed.
QStringList listedColumns(const bound::Insert& insert);
QStringList listedColumns(const bound::Update& update);

// Adds a text to a column's list, unless it is there. Names are the canonical ones.
Emitted listText(const QString& table, const QString& column, const QString& text,
                 const Dialect& dialect);
// Adds all different texts of the column's rows to its empty list.
Emitted listAllTexts(const QString& table, const QString& column, const Dialect& dialect);
// One column of rows: the column's list in order; those read from its rows, which takes as long as
// reading them all.
Emitted listedTexts(const QString& table, const QString& column, const Dialect& dialect);
Emitted distinctTexts(const QString& table, const QString& column, const Dialect& dialect);

} // namespace storage::sql
