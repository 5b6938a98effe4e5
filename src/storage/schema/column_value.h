#pragma once

#include "storage/base/value.h"
#include "storage/schema/catalog.h"

#include <optional>

namespace storage {

// The value as the column keeps it: numbers from texts that are numbers, whole numbers of 32 bits,
// texts up to the column's length in characters, date-times also from texts that are one. Null fits
// everywhere but in an auto-number; nothing when the value does not fit.
std::optional<Value> fitColumn(const Value& value, const schema::Column& column);
// Says so for the user when a statement's value does not fit; `row` tells which row it was, empty
// when there is no doubt.
QString misfitMessage(const Value& value, const QString& column, const QString& row = QString());

} // namespace storage
