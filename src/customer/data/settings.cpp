#include "customer/data/settings.h"

#include "core/data/settings_row.h"
#include "storage/recordset.h"

using namespace Qt::StringLiterals;

namespace customer {

namespace {

struct SettingColumn {
    QStringView column;
    int Settings::*setting;
};

constexpr SettingColumn SettingColumns[] = {
    {u"顧客初期ﾀﾌﾞ", &Settings::firstTab},
    {u"顧客表示方法", &Settings::customerView},
    {u"件名表示方法", &Settings::caseView},
    {u"ログ表示方法", &Settings::logView},
    {u"顧客詳細表示", &Settings::customerDetail},
    {u"件名詳細表示", &Settings::caseDetail},
    {u"並べ01", &Settings::customerSort},
    {u"並べ02", &Settings::customerDescending},
    {u"並べ03", &Settings::caseSort},
    {u"並べ04", &Settings::caseDescending},
    {u"並べ05", &Settings::logSort},
    {u"並べ06", &Settings::logDescending},
    {u"上", &Settings::marginTop},
    {u"左", &Settings::marginLeft},
    {u"右", &Settings::marginRight},
    {u"下", &Settings::marginBottom},
    {u"顧客表示数", &Settings::customersShown},
    {u"件名表示数", &Settings::casesShown},
    {u"ログ表示数", &Settings::logsShown},
    {u"予定表示", &Settings::showSchedule},
    {u"前回表示", &Settings::rememberView},
    {u"ログプレ表示", &Settings::previewShown},
    {u"顧客詳細横位置", &Settings::detailLeft},
    {u"顧客詳細縦位置", &Settings::detailTop},
    {u"顧客詳細表示列位置", &Settings::customerClickColumn},
    {u"件顧詳細表示列位置", &Settings::caseClickColumn},
    {u"ログプレ表示列位置", &Settings::logClickColumn},
    {u"最近更新顧客表示日数", &Settings::recentCustomerDays},
    {u"最近更新件名ログ表示日数", &Settings::recentCaseDays},
    {u"件名表示日", &Settings::caseDateShown},
    {u"件名予定強調", &Settings::emphasizePlanned},
};

// What a Null stands for: the default, but all rows for the rows of a page.
int valueForNull(int Settings::*setting)
{
    if (setting == &Settings::customersShown || setting == &Settings::casesShown
        || setting == &Settings::logsShown) {
        return 0;
    }
    return Settings{}.*setting;
}

QString columnOf(int Settings::*setting)
{
    for (const SettingColumn& column : SettingColumns) {
        if (column.setting == setting)
            return column.column.toString();
    }
    return {};
}

} // namespace

Settings readSettings(CustomerFile& file)
{
    Settings settings;
    storage::Recordset row;
    if (!core::openSettings(file, row))
        return settings;
    for (const SettingColumn& column : SettingColumns)
        settings.*column.setting =
            core::settingOf(row, column.column, valueForNull(column.setting));
    settings.stamp = row.text(u"更新日時");
    return settings;
}

bool saveSettings(CustomerFile& file, const QList<SettingValue>& values)
{
    core::FieldValues fields;
    for (const SettingValue& value : values)
        fields.append({columnOf(value.setting), value.value});
    return core::saveSettings(file, fields);
}

} // namespace customer
