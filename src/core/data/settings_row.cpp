#include "core/data/settings_row.h"

#include "core/data/clock.h"
#include "core/data/row_changes.h"
#include "storage/recordset.h"
#include "storage/schema/definitions.h"

using namespace Qt::StringLiterals;

namespace core {

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

bool openSettings(DataFile& file, storage::Recordset& row)
{
    return row.open(SettingsQuery, file.connection) && !row.eof();
}

int settingOf(const storage::Recordset& row, QStringView column, int otherwise)
{
    const int index = row.fieldIndex(column);
    return index < 0 ? otherwise : static_cast<int>(row.value(index).toInteger(otherwise));
}

bool saveSettings(DataFile& file, const FieldValues& values)
{
    const ChangeSteps steps = [&] {
        const std::optional<bool> found = rowStands(file, SettingsQuery);
        return found && (*found || appendSettings(file)) && writeRow(file, SettingsQuery, values);
    };
    return saveNew(file, steps) == SaveResult::Saved;
}

} // namespace core
