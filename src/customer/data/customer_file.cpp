#include "customer/data/customer_file.h"

#include "storage/schema/definitions.h"

using namespace Qt::StringLiterals;

namespace customer {

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
        u"ALTER TABLE 設定 ADD COLUMN 顧客詳細横位置 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN 顧客詳細縦位置 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN 顧客詳細表示列位置 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN 件顧詳細表示列位置 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN ログプレ表示列位置 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN 最近更新顧客表示日数 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN 最近更新件名ログ表示日数 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN 件名表示日 Long"_s,
        u"ALTER TABLE 設定 ADD COLUMN 件名予定強調 Long"_s,
        u"ALTER TABLE ユーザー ADD COLUMN 最近更新日時 date"_s,
        u"ALTER TABLE 件名 ADD COLUMN 最近更新日時 date"_s,
        u"ALTER TABLE 件名 ADD COLUMN 予定日 STRING(13)"_s,
        u"ALTER TABLE ４印刷件名 ADD COLUMN 予定日 STRING(13)"_s,
    };
}

records::FieldValues upgradeDefaults()
{
    return {
        {u"ログプレ表示"_s, 1},
        {u"ログプレ手前"_s, 0},
        {u"ログプレ横位置"_s, 0},
        {u"ログプレ縦位置"_s, 0},
        {u"ログプレ横幅"_s, 9150},
        {u"ログプレ縦幅"_s, 2085},
        {u"顧客詳細横位置"_s, 0},
        {u"顧客詳細縦位置"_s, 0},
        {u"顧客詳細表示列位置"_s, 0},
        {u"件顧詳細表示列位置"_s, 0},
        {u"ログプレ表示列位置"_s, 0},
        {u"最近更新顧客表示日数"_s, 7},
        {u"最近更新件名ログ表示日数"_s, 7},
        {u"件名表示日"_s, 0},
        {u"件名予定強調"_s, 0},
    };
}

const records::DataFileForm& customerForm()
{
    static const storage::schema::Definition definition =
        storage::schema::customerFile(storage::schema::Version::V311);
    static const records::DataFileForm form{u"ユーザー"_s,
                                            u"顧客管理のデータファイルではありません。"_s,
                                            upgradeStatements(), upgradeDefaults(), definition};
    return form;
}

} // namespace

CustomerFile::CustomerFile(core::Messages& toldTo, const core::Clock& timedBy)
    : DataFile(toldTo, timedBy, customerForm())
{
}

bool OpenCustomerFile(CustomerFile& file, const QString& path, storage::Mode mode)
{
    return records::openDataFile(file, path, mode);
}

void CloseCustomerFile(CustomerFile& file)
{
    file.connection.close();
}

} // namespace customer
