#pragma once

#include "records/data/database.h"
#include "records/data/fields.h"

#include <QString>

#include <functional>
#include <optional>

namespace storage {
class Recordset;
}

// Steps that changes are made of. Each is part of a transaction that whoever runs them opens.
namespace records {

// The steps of a change inside its transaction; false undoes all of them.
using ChangeSteps = std::function<bool()>;
// Is handed a row as it stands after it was written; may be empty.
using RowReceiver = std::function<void(const storage::Recordset& row)>;

// Runs steps in one transaction: all or nothing. False when a step or the engine refused.
bool runSteps(Database& data, const ChangeSteps& steps);

// Whether a query finds a row; nullopt when the engine cannot say.
std::optional<bool> rowStands(Database& data, const QString& query);
// Puts fields and then 更新日時 (the present moment) into the current row, which is not yet
// written.
bool putFields(Database& data, storage::Recordset& row, const FieldValues& fields);
// Writes fields and then 更新日時 into the row that a query finds. False when there is no such row
// or the engine refused.
bool writeRow(Database& data, const QString& query, const FieldValues& fields,
              const RowReceiver& written = {});
// Stamps 最近更新日時 and 更新日時 of a row; a row that is not there is no failure.
bool touchRow(Database& data, const QString& query);
// A number that a query gives in a field; 0 when there is none, nothing when reading failed.
std::optional<qint64> readNumber(Database& data, const QString& query, const QString& field);

} // namespace records
