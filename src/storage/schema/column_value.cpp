#include "storage/schema/column_value.h"

#include "text/dates.h"
#include "text/fold.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace storage {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype ShownLength = 40; // of a value, in a message

// Digits count in either width, as they do where a statement compares them.
std::optional<Value> asReal(const Value& value)
{
    bool isNumber = value.type() == ValueType::Integer || value.type() == ValueType::Real;
    double number = value.toReal();
    if (value.type() == ValueType::Text)
        number = text::fold(value.toText()).trimmed().toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number))
        return {};
    return Value(number);
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

QString misfitMessage(const Value& value, const QString& column, const QString& row)
{
    QString shown = value.isNull() ? u"Null"_s : value.toText();
    if (shown.size() > ShownLength)
        shown = shown.left(ShownLength) + u'…';
    const QString place = row.isEmpty() ? row : u'（' + row + u'）';
    return u"列「"_s + column + u"」に入らない値「"_s + shown + u"」です"_s + place + u'。';
}

} // namespace storage
