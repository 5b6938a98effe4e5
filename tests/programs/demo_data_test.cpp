#include "core/data/database_password.h"
#include "programs/run_program.h"
#include "storage/connection.h"
#include "storage/schema/catalog.h"
#include "support/scratch_folder.h"
#include "support/storage/rows.h"

#include <gmock/gmock.h>

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

const QString Password = QString::fromUtf16(core::DatabasePassword);
const QStringList FileNames = {u"main.mdb"_s, u"Corvane/見本.mdb"_s, u"Care/見本.mdb"_s};

ProgramResult makeData(const ScratchFolder& folder, const QString& seed)
{
    return runProgram(u"demo_data"_s,
                      {u"--customers"_s, u"40"_s, u"--repairs"_s, u"30"_s, u"--seed"_s, seed,
                       u"--today"_s, u"2026/04/15"_s, folder.path()});
}

// All rows of all tables of all files.
QStringList contentOf(const ScratchFolder& folder)
{
    QStringList content;
    for (const QString& name : FileNames) {
        storage::Connection file;
        EXPECT_TRUE(file.open(folder.filePath(name), Password));
        for (const storage::schema::Table& table : file.catalog().tables())
            content += rowsOf(file, u"SELECT * FROM ["_s + table.name() + u']');
        EXPECT_TRUE(file.errors().isEmpty()) << file.lastError().message.toStdString();
    }
    return content;
}

TEST(DemoData, IsTheSameForTheSameSeed)
{
    const ScratchFolder first;
    const ScratchFolder second;
    const ScratchFolder other;
    ASSERT_EQ(makeData(first, u"7"_s).status, 0);
    ASSERT_EQ(makeData(second, u"7"_s).status, 0);
    ASSERT_EQ(makeData(other, u"8"_s).status, 0);
    const QStringList content = contentOf(first);
    EXPECT_EQ(content, contentOf(second));
    EXPECT_NE(content, contentOf(other));
}

TEST(DemoData, FillsAProgramFolder)
{
    const ScratchFolder folder;
    ASSERT_EQ(makeData(folder, u"1"_s).status, 0);
    storage::Connection files[3];
    for (std::size_t i = 0; i < std::size(files); ++i)
        ASSERT_TRUE(files[i].open(folder.filePath(FileNames[static_cast<qsizetype>(i)]), Password));
    const auto one = [&files](std::size_t file, const QString& statement) {
        const QStringList rows = rowsOf(files[file], statement);
        return rows.size() == 1 ? rows.first() : u"%1 rows"_s.arg(rows.size());
    };
    EXPECT_EQ(
        rowsOf(files[0], u"SELECT 種類, ﾃﾞｰﾀ, ﾊﾟｽﾜｰﾄﾞ FROM main WHERE [No] > 5 ORDER BY [No]"_s),
        (QStringList{u"顧客管理|見本|-"_s, u"修理管理|見本|-"_s}));
    for (const QString& name : {u"Corvane.mdb"_s, u"Care.mdb"_s, u"menu.ini"_s})
        EXPECT_TRUE(QFile::exists(folder.filePath(name))) << name.toStdString();

    EXPECT_EQ(one(1, u"SELECT ユーザー, 件名, ログ FROM 最新発番"_s), u"40|120|360"_s);
    EXPECT_EQ(one(1,
                  u"SELECT count(*) AS n FROM 件名 INNER JOIN ユーザー ON (ユーザー.ﾕｰｻﾞｰ識別ID = "
                  u"件名.件名識別ID) AND (ユーザー.ﾕｰｻﾞｰID = 件名.ﾕｰｻﾞｰID)"_s),
              u"120"_s);
    EXPECT_EQ(one(1,
                  u"SELECT count(*) AS n FROM ログ INNER JOIN 件名 ON (ログ.ログ識別ID = "
                  u"件名.件名識別ID) AND (ログ.件名ID = 件名.件名ID)"_s),
              u"360"_s);
    EXPECT_EQ(one(2, u"SELECT count(*) AS n FROM 修理"_s), u"30"_s);
    // Nothing that the notice and the day's views count is empty.
    const std::pair<std::size_t, QString> counts[] = {
        {1, u"予定 WHERE 日付 Like '2026/04/15%'"_s},
        {1, u"リースリスト WHERE 終了日 Like '2026/04%'"_s},
        {1, u"件名 WHERE 判定 = '続行'"_s},
        {1,
         u"ユーザー WHERE 最近更新日時 BETWEEN #2026/03/01 00:00:00# AND #2026/04/15 23:59:59#"_s},
        {2, u"予定 WHERE 日付 Like '2026/04/15%'"_s},
        {2, u"修理 WHERE 状況 = '続行'"_s},
        {2, u"修理 WHERE 入金 = '未入'"_s},
    };
    for (const auto& [file, where] : counts)
        EXPECT_GT(one(file, u"SELECT count(*) AS n FROM "_s + where).toInt(), 0)
            << where.toStdString();
}

TEST(DemoData, RefusesAFolderThatHoldsData)
{
    const ScratchFolder folder;
    ASSERT_EQ(makeData(folder, u"1"_s).status, 0);
    const QStringList before = contentOf(folder);
    EXPECT_EQ(makeData(folder, u"2"_s).status, 1);
    EXPECT_EQ(contentOf(folder), before);
}

} // namespace
