#include "records/data/data_file.h"

#include "core/data/database_password.h"
#include "records/data/log_preview.h"
#include "support/records/data/each_kind_test.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using storage::schema::Version;

namespace {

class KindOfFileTest : public EachKindTest {
protected:
    void SetUp() override { create(Version::V311); }

    // What another program does to the file while it is closed.
    void change(const QStringList& statements)
    {
        storage::Connection other;
        ASSERT_TRUE(other.open(path(), QString::fromUtf16(core::DatabasePassword)));
        for (const QString& statement : statements)
            EXPECT_TRUE(other.execute(statement)) << statement.toStdString();
    }
    QString version() { return valueOf(u"SELECT ﾊﾞｰｼﾞｮﾝ FROM バージョン情報 WHERE [No] = 1"_s); }
    bool hasColumn(QStringView table, QStringView column)
    {
        const storage::schema::Table* found = file.connection.catalog().find(table);
        return found && found->indexOf(column) >= 0;
    }
};

TEST_P(KindOfFileTest, SaysWhyAFileCannotBeUsed)
{
    EXPECT_FALSE(records::openDataFile(file, path() + u"x"_s, storage::Mode::ReadWrite));
    EXPECT_TRUE(messages.takeText().startsWith(u"データファイルを開けませんでした。\r\n"));
    EXPECT_EQ(takeErrors(), QList{storage::ErrorKind::Missing});

    records::DataFile& otherKind =
        isRepair() ? static_cast<records::DataFile&>(customers) : repairs;
    EXPECT_FALSE(records::openDataFile(otherKind, path(), storage::Mode::ReadWrite));
    EXPECT_TRUE(messages.takeText().endsWith(isRepair()
                                                 ? u"顧客管理のデータファイルではありません。"_s
                                                 : u"修理管理のデータファイルではありません。"_s));
    EXPECT_FALSE(otherKind.connection.isOpen());

    change({u"DROP TABLE バージョン情報"_s});
    EXPECT_FALSE(open());
    EXPECT_TRUE(messages.takeText().endsWith(u"のデータファイルではありません。"_s));
}

TEST_P(KindOfFileTest, UpgradesAFileWithoutSettings)
{
    create(Version::V300);
    change({u"DROP TABLE 設定"_s});
    ASSERT_TRUE(open());
    const QList<storage::ErrorKind> errors = takeErrors();
    EXPECT_EQ(errors.count(storage::ErrorKind::Name), errors.size()) << "only the missing table";
    EXPECT_EQ(version(), u"3.1.1");
}

TEST_P(KindOfFileTest, UpgradesAFileThatHasSomeOfTheColumns)
{
    const QString table = isRepair() ? u"修理"_s : u"件名"_s;
    create(Version::V300);
    change({u"ALTER TABLE 設定 ADD COLUMN ログプレ横幅 Long"_s,
            u"ALTER TABLE "_s + table + u" ADD COLUMN 最近更新日時 date"_s,
            u"UPDATE 設定 SET ログプレ横幅 = 1, ログ表示数 = 30"_s,
            u"INSERT INTO "_s + table + u" (備考) VALUES ('旧')"_s});
    ASSERT_TRUE(open());
    EXPECT_EQ(takeErrors().size(), 2); // the two columns that were there
    EXPECT_EQ(version(), u"3.1.1");
    const QString written = isRepair()
        ? u"ログプレ表示 & ' ' & 修理詳細横位置 & ' ' & 修理詳細縦位置 & ' ' & 修理詳細表示列位置 "
          u"& ' ' & 未収詳細表示列位置 & ' ' & ログプレ表示列位置 & ' ' & 最近更新修理表示日数 & ' "
          u"' "
          u"& 修理超過強調 & ' ' & 超過日数"_s
        : u"ログプレ表示 & ' ' & 顧客詳細横位置 & ' ' & 顧客詳細縦位置 & ' ' & "
          u"顧客詳細表示列位置 & ' ' & 件顧詳細表示列位置 & ' ' & ログプレ表示列位置 & ' ' & "
          u"最近更新顧客表示日数 & ' ' & 最近更新件名ログ表示日数 & ' ' & 件名表示日 & ' ' & "
          u"件名予定強調"_s;
    EXPECT_EQ(valueOf(u"SELECT "_s + written + u" FROM 設定"_s),
              isRepair() ? u"1 0 0 0 0 0 7 0 10"_s : u"1 0 0 0 0 0 7 7 0 0"_s);
    EXPECT_EQ(records::readPreviewPlace(file), records::PreviewPlace{});
    EXPECT_EQ(valueOf(u"SELECT ログ表示数 & ' ' & 更新日時 FROM 設定"_s),
              u"30 2024/04/15 10:30:00.000");
    EXPECT_EQ(column(u"SELECT 備考 FROM "_s + table + u" WHERE 最近更新日時 is null"_s),
              QStringList{u"旧"_s});
    EXPECT_EQ(hasColumn(u"４印刷件名", u"予定日"), !isRepair());

    // The defaults are written once only.
    execute(u"UPDATE 設定 SET ログプレ横幅 = 5000"_s);
    file.connection.close();
    ASSERT_TRUE(open());
    EXPECT_EQ(records::readPreviewPlace(file).width, 5000);
}

TEST_P(KindOfFileTest, LeavesOtherVersionsAlone)
{
    for (const QString& other : {u"2.9.0"_s, u""_s}) {
        create(Version::V300);
        change({u"UPDATE バージョン情報 SET ﾊﾞｰｼﾞｮﾝ = '"_s + other + u'\''});
        ASSERT_TRUE(open());
        EXPECT_EQ(version(), other);
        EXPECT_FALSE(hasColumn(u"設定", u"ログプレ表示"));
        EXPECT_EQ(records::readPreviewPlace(file), records::PreviewPlace{});
        file.connection.close();
    }
}

TEST_P(KindOfFileTest, KeepsThePreviewInASettingsRowThatIsMissingOrHasNulls)
{
    ASSERT_TRUE(open());
    records::PreviewPlace place{true, -600, 900, 7500, 1800};
    EXPECT_TRUE(records::savePreviewPlace(file, place));
    EXPECT_FALSE(records::readPreviewPlace(file).onTop); // has a step of its own
    EXPECT_TRUE(records::savePreviewOnTop(file, true));
    EXPECT_EQ(records::readPreviewPlace(file), place);

    execute(u"UPDATE 設定 SET ログプレ横幅 = null, ログプレ手前 = null"_s);
    place.width = 9150;
    place.onTop = false;
    EXPECT_EQ(records::readPreviewPlace(file), place);
    execute(u"DELETE FROM 設定"_s);
    EXPECT_EQ(records::readPreviewPlace(file), records::PreviewPlace{});
    EXPECT_TRUE(records::savePreviewOnTop(file, true));
    EXPECT_EQ(valueOf(u"SELECT 設定ID & ' ' & ログ表示数 & ' ' & 上 & ' ' & ログプレ表示 & ' ' & "
                      u"ログプレ手前 & ' ' & ログプレ縦幅 & ' ' & 更新日時 FROM 設定"_s),
              u"1 100 15 1 1 2085 2024/04/15 10:30:00.001");
}

INSTANTIATE_TEST_SUITE_P(Kinds, KindOfFileTest, EachKind, kindName);

} // namespace
