#include "records/data/settings.h"

#include "core/data/clock.h"
#include "core/data/failure.h"
#include "records/data/row_changes.h"
#include "storage/recordset.h"
#include "storage/schema/definitions.h"

using namespace Qt::StringLiterals;

namespace records {

namespace {

const QString SettingsQuery = u"SELECT * FROM 設定 WHERE 設定ID = 1"_s;
const QString SettingsTable = u"設定"_s;

// A file of another version may lack some of the columns.
bool appendSettings(DataFile& file)
{
    storage::Recordset row;
    if (!row.open(SettingsTable, file.connection, storage::CursorType::Dynamic,
                  storage::LockType::Optimistic)
        || !row.addNew()) {
        return false;
    }
    for (const storage::schema::SeedRow& seed : file.form.definition.rows) {
        if (seed.table != SettingsTable)
            continue;
        for (const auto& [column, value] : seed.values) {
            if (row.fieldIndex(column) >= 0 && !row.setValue(column, value))
                return false;
        }
    }
    return row.setValue(u"更新日時", file.clock.now()) && row.update();
}

} // namespace

int Settings::operator[](const Setting& setting) const
{
    const auto found = m_values.constFind(setting.column.toString());
    if (found == m_values.cend())
        return setting.otherwise;
    return found->isNull() ? setting.forNull
                           : static_cast<int>(found->toInteger(setting.otherwise));
}

void Settings::set(const Setting& setting, int value)
{
    m_values.insert(setting.column.toString(), value);
}

Settings readSettings(DataFile& file)
{
    Settings settings;
    storage::Recordset row;
    if (!row.open(SettingsQuery, file.connection) || row.eof())
        return settings;
    for (int field = 0; field < row.fieldCount(); ++field)
        settings.m_values.insert(row.fieldName(field), row.value(field));
    return settings;
}

bool saveSettings(DataFile& file, const SettingValues& values)
{
    FieldValues fields;
    for (const auto& [setting, value] : values)
        fields.append({setting.column.toString(), value});
    const bool saved = runSteps(file, [&] {
        const std::optional<bool> found = rowStands(file, SettingsQuery);
        return found && (*found || appendSettings(file)) && writeRow(file, SettingsQuery, fields);
    });
    return saved || core::tellFailure(file.messages, core::SaveFailedText, file.connection);
}

bool saveSettings(DataFile& file, Settings& settings, const SettingValues& values)
{
    if (!saveSettings(file, values))
        return false;
    for (const auto& [setting, value] : values)
        settings.set(setting, value);
    return true;
}

} // namespace records
