#include "core/data/log_preview.h"

#include "core/data/settings_row.h"
#include "storage/recordset.h"

using namespace Qt::StringLiterals;

namespace core {

namespace {

const QString OnTop = u"ログプレ手前"_s;

struct PlaceColumn {
    QStringView column;
    int PreviewPlace::*part;
};

constexpr PlaceColumn PlaceColumns[] = {
    {u"ログプレ横位置", &PreviewPlace::left},
    {u"ログプレ縦位置", &PreviewPlace::top},
    {u"ログプレ横幅", &PreviewPlace::width},
    {u"ログプレ縦幅", &PreviewPlace::height},
};

} // namespace

QString previewText(DataFile& file, const LogTable& log, const RecordKey& key)
{
    storage::Recordset row;
    if (key.isNone() || !row.open(log.rowQuery + QString::number(key.updateId), file.connection)
        || row.eof()) {
        return {};
    }
    return u"【 "_s + row.text(log.day) + u" 】　　【 "_s + row.text(log.recorder)
        + u" 】\r\n【 ロ グ 】\r\n"_s + row.text(log.text);
}

PreviewPlace readPreviewPlace(DataFile& file)
{
    PreviewPlace place;
    storage::Recordset row;
    if (!openSettings(file, row))
        return place;
    place.onTop = settingOf(row, OnTop, 0) == 1;
    for (const auto& [column, part] : PlaceColumns)
        place.*part = settingOf(row, column, place.*part);
    return place;
}

bool savePreviewPlace(DataFile& file, const PreviewPlace& place)
{
    FieldValues values;
    for (const auto& [column, part] : PlaceColumns)
        values.append({column.toString(), place.*part});
    return saveSettings(file, values);
}

bool savePreviewOnTop(DataFile& file, bool onTop)
{
    return saveSettings(file, {{OnTop, onTop ? 1 : 0}});
}

} // namespace core
