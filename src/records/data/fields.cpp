#include "records/data/fields.h"

#include <algorithm>

namespace records {

namespace {

auto find(const FieldValues& fields, QStringView column)
{
    return std::find_if(fields.cbegin(), fields.cend(),
                        [column](const auto& field) { return field.first == column; });
}

} // namespace

storage::Value fieldValue(const FieldValues& fields, QStringView column)
{
    const auto found = find(fields, column);
    return found == fields.cend() ? storage::Value() : found->second;
}

QString fieldText(const FieldValues& fields, QStringView column)
{
    return fieldValue(fields, column).toText();
}

qint64 fieldNumber(const FieldValues& fields, QStringView column)
{
    return fieldValue(fields, column).toInteger();
}

void setField(FieldValues& fields, const QString& column, const storage::Value& value)
{
    const auto found = find(fields, column);
    if (found == fields.cend())
        fields.append({column, value});
    else
        fields[found - fields.cbegin()].second = value;
}

FieldValues editedOf(const FieldValues& values, const FieldValues& shown)
{
    FieldValues edited;
    for (const auto& field : values) {
        const auto before = find(shown, field.first);
        if (before == shown.cend() || before->second != field.second)
            edited.append(field);
    }
    return edited;
}

} // namespace records
