#pragma once

#include "core/data/data_file.h"

#include <QString>

namespace storage {
class Recordset;
}

// The settings row (設定, 設定ID = 1): every data file has one, each kind with columns of its own.
namespace core {

// Opens the row; false when there is none.
bool openSettings(DataFile& file, storage::Recordset& row);
// The number in a column of the row that `row` stands on; `otherwise` when the column is missing or
// Null.
int settingOf(const storage::Recordset& row, QStringView column, int otherwise);

// Writes some columns and leaves the others alone; makes the row as a new file has it when it is
// missing. The user is told of a failure; false then.
bool saveSettings(DataFile& file, const FieldValues& values);

} // namespace core
