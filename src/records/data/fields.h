#pragma once

#include "storage/base/value.h"

#include <QList>
#include <QString>

#include <utility>

namespace records {

// Columns of one row and their values, in the order in which they are written.
using FieldValues = QList<std::pair<QString, storage::Value>>;

// The value of a column, named as it was put in; Null when it is not among them.
storage::Value fieldValue(const FieldValues& fields, QStringView column);
QString fieldText(const FieldValues& fields, QStringView column);
qint64 fieldNumber(const FieldValues& fields, QStringView column);
// Puts a value in the place of the column's present one, or behind all others.
void setField(FieldValues& fields, const QString& column, const storage::Value& value);
// Those of the values that differ from what was shown: a field that was not edited is not
// rewritten. A column that `shown` lacks counts as edited.
FieldValues editedOf(const FieldValues& values, const FieldValues& shown);

} // namespace records
