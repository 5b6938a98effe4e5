#pragma once

#include "core/data/row_changes.h"

#include <optional>

namespace core {

// One kind of numbered record: how its new row is found, and where its number is written.
struct IdKind {
    QString table;         // opened by this name to append
    QString maxQuery;      // gives the largest update ID as ma1
    QString counterColumn; // of 最新発番
    QString rowQuery;      // completed by the update ID
    QString idColumn;
};

// Appends a row with these fields and 更新日時 and numbers it: the update ID that the engine gave
// it becomes the kind's last number and the row's ID. All of it is one transaction, so that copies
// of the program never number each other's rows and a kill leaves a numbered row or none. Gives the
// number; nullopt when the engine refused (nothing is written then).
std::optional<qint64> appendNumbered(DataFile& file, const IdKind& kind, const FieldValues& fields);

} // namespace core
