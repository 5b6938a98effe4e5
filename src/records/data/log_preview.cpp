#include "records/data/log_preview.h"

#include "records/data/settings.h"

using namespace Qt::StringLiterals;

namespace records {

namespace {

constexpr Setting OnTop{u"ログプレ手前", 0};

struct PlaceSetting {
    Setting setting;
    int PreviewPlace::*part;
};

constexpr PlaceSetting PlaceSettings[] = {
    {{u"ログプレ横位置", 0}, &PreviewPlace::left},
    {{u"ログプレ縦位置", 0}, &PreviewPlace::top},
    {{u"ログプレ横幅", 9150}, &PreviewPlace::width},
    {{u"ログプレ縦幅", 2085}, &PreviewPlace::height},
};

} // namespace

QString previewText(Database& data, const LogTable& log, const core::RecordKey& key)
{
    const std::optional<Record> entry =
        key.isNone() ? std::nullopt : readRecord(data, log.entries, key);
    if (!entry)
        return {};
    return u"【 "_s + entry->text(log.day) + u" 】　　【 "_s + entry->text(log.recorder)
        + u" 】\r\n【 ロ グ 】\r\n"_s + entry->text(log.text);
}

PreviewPlace readPreviewPlace(DataFile& file)
{
    const Settings settings = readSettings(file);
    PreviewPlace place;
    place.onTop = settings[OnTop] == 1;
    for (const auto& [setting, part] : PlaceSettings)
        place.*part = settings[setting];
    return place;
}

bool savePreviewPlace(DataFile& file, const PreviewPlace& place)
{
    SettingValues values;
    for (const auto& [setting, part] : PlaceSettings)
        values.append({setting, place.*part});
    return saveSettings(file, values);
}

bool savePreviewOnTop(DataFile& file, bool onTop)
{
    return saveSettings(file, {{OnTop, onTop ? 1 : 0}});
}

} // namespace records
