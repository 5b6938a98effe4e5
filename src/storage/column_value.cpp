#include "storage/column_value.h"

#include "text/dates.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace storage {

namespace {

std::optional<Value> asReal(const Value& value)
{
    bool isNumber = value.type() == ValueType::Integer || value.type() == ValueType::Real;
    if (value.type() == ValueType::Text)
        value.toText().trimmed().toDouble(&isNumber);
    if (!isNumber || !std::isfinite(value.toReal()))
        return {};
    return Value(value.toReal());
}

std::optional<Value> asLong(const Value& value)
{
    const auto real = asReal(value);
    if (!real)
        return {};
    constexpr double Lowest = std::numeric_limits<qint32>::min();
    constexpr double Highest = std::numeric_limits<qint32>::max();
    const double whole = std::nearbyint(real->toReal());
    if (whole < Lowest || whole > Highest)
        return {};
    return Value(static_cast<qint64>(whole));
}

std::optional<Value> asText(const Value& value, int maxLength)
{
    QString text = value.toText();
    if (maxLength > 0 && text.size() > maxLength) {
        const auto trailing =
            std::ranges::count_if(text, [](QChar unit) { return unit.isLowSurrogate(); });
        if (text.size() - trailing > maxLength)
            return {};
    }
    return Value(std::move(text));
}

std::optional<Value> asDateTime(const Value& value)
{
    if (value.type() == ValueType::DateTime)
        return value;
    if (value.type() != ValueType::Text)
        return {};
    const auto moment = text::parseDateTime(value.toText());
    return moment ? std::optional(Value(*moment)) : std::nullopt;
}

} // namespace

std::optional<Value> fitColumn(const Value& value, const schema::Column& column)
{
    if (value.isNull())
        return column.type == schema::ColumnType::AutoNumber ? std::nullopt : std::optional(value);
    switch (column.type) {
    case schema::ColumnType::AutoNumber:
    case schema::ColumnType::Long:
        return asLong(value);
    case schema::ColumnType::Real:
        return asReal(value);
    case schema::ColumnType::DateTime:
        return asDateTime(value);
    case schema::ColumnType::Text:
        break;
    }
    return asText(value, column.maxLength);
}

} // namespace storage
