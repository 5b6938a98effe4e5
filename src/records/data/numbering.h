#pragma once

#include "records/data/row_changes.h"

#include <optional>

namespace records {

// How a kind of record is numbered: how its new row is found, and where its number is written.
struct Numbering {
    QString maxQuery;      // gives the largest update ID as ma1
    QString rowQuery;      // completed by the update ID
    QString counterColumn; // of 最新発番; empty: the database keeps no counters
};

// Appends a row with these fields and 更新日時 to a table and numbers it: the update ID that the
// engine gave it becomes the kind's last number and the row's ID, in `idColumn`. All of it is one
// transaction, so that copies of the program never number each other's rows and a kill leaves a
// numbered row or none. `written` is handed the row as it then stands. Gives the number; nullopt
// when the engine refused (nothing is written then).
std::optional<qint64> appendNumbered(Database& data, const QString& table,
                                     const Numbering& numbering, const QString& idColumn,
                                     const FieldValues& fields, const RowReceiver& written = {});

} // namespace records
