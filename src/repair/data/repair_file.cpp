#include "repair/data/repair_file.h"

#include "storage/schema/definitions.h"

using namespace Qt::StringLiterals;

namespace repair {

namespace {

QStringList upgradeStatements()
{
    return {
        u"ALTER TABLE 設定 ADD COLUMN ログプレ表示 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN ログプレ手前 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN ログプレ横位置 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN ログプレ縦位置 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN ログプレ横幅 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN ログプレ縦幅 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN 修理詳細横位置 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN 修理詳細縦位置 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN 修理詳細表示列位置 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN 未収詳細表示列位置 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN ログプレ表示列位置 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN 最近更新修理表示日数 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN 修理超過強調 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN 超過日数 Long"_s,
        u"ALTER TABLE 修理 ADD COLUMN 最近更新日時 date"_s,
    };
}

records::FieldValues upgradeDefaults()
{
    return {
        {u"ログプレ表示"_s, 1},       {u"ログプレ手前"_s, 0},       {u"ログプレ横位置"_s, 0},
        {u"ログプレ縦位置"_s, 0},     {u"ログプレ横幅"_s, 9150},    {u"ログプレ縦幅"_s, 2085},
        {u"修理詳細横位置"_s, 0},     {u"修理詳細縦位置"_s, 0},     {u"修理詳細表示列位置"_s, 0},
        {u"未収詳細表示列位置"_s, 0}, {u"ログプレ表示列位置"_s, 0}, {u"最近更新修理表示日数"_s, 7},
        {u"修理超過強調"_s, 0},       {u"超過日数"_s, 10},
    };
}

const records::DataFileForm& repairForm()
{
    static const storage::schema::Definition definition =
        storage::schema::repairFile(storage::schema::Version::V311);
    static const records::DataFileForm form{u"修理"_s,
                                            u"修理管理のデータファイルではありません。"_s,
                                            upgradeStatements(), upgradeDefaults(), definition};
    return form;
}

} // namespace

RepairFile::RepairFile(core::Messages& toldTo, const core::Clock& timedBy)
    : DataFile(toldTo, timedBy, repairForm())
{
}

bool OpenRepairFile(RepairFile& file, const QString& path, storage::Mode mode)
{
    return records::openDataFile(file, path, mode);
}

void CloseRepairFile(RepairFile& file)
{
    file.connection.close();
}

} // namespace repair
