#include "core/data/database_password.h"
#include "programs/run_program.h"
#include "storage/connection.h"
#include "storage/recordset.h"
#include "support/scratch_folder.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using storage::Value;

namespace {

// A customer file with a few entries in its schedule.
class Jetsql : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(runProgram(u"make_templates"_s, {m_folder.path()}).status, 0);
        ASSERT_TRUE(file.open(path(), QString::fromUtf16(core::DatabasePassword)));
        storage::Recordset entries;
        ASSERT_TRUE(entries.open(u"予定"_s, file, storage::CursorType::Dynamic,
                                 storage::LockType::Optimistic));
        const auto add = [&entries](const Value& time, const Value& text) {
            return entries.addNew() && entries.setValue(u"日付", u"2026/01/05(月)"_s)
                && entries.setValue(u"時刻", time) && entries.setValue(u"予定", text)
                && entries.setValue(u"更新日時",
                                    Value::fromDateTimeText(u"2026/01/05 09:00:00.125"_s))
                && entries.update();
        };
        ASSERT_TRUE(add(Value(), u"一行目\r\n二\t行目 \\ 終"_s));
        ASSERT_TRUE(add(u"10:30"_s, u""_s));
        file.close();
    }

    QString path() const { return m_folder.filePath(u"Corvane.mdb"_s); }
    ProgramResult run(const QString& statements, const QStringList& options = {})
    {
        return runProgram(u"jetsql"_s, options + QStringList{path()}, statements);
    }

    storage::Connection file;

private:
    ScratchFolder m_folder;
};

TEST_F(Jetsql, PrintsNamesAndRowsWithTheirSpecialCharactersEscaped)
{
    const ProgramResult result =
        run(u"SELECT 予定更新ID, 時刻, 予定, 更新日時 FROM 予定 ORDER BY 予定更新ID\n"_s);
    EXPECT_EQ(result.output,
              u"予定更新ID\t時刻\t予定\t更新日時\n"
              u"1\t\\N\t一行目\\r\\n二\\t行目 \\\\ 終\t2026/01/05 09:00:00.125\n"
              u"2\t10:30\t\t2026/01/05 09:00:00.125\n"
              u"\n"_s);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, QString());
}

TEST_F(Jetsql, GoesOnAfterAFailedStatement)
{
    const ProgramResult result = run(u"UPDATE 予定 SET 時刻 = '11:00'\r\n"
                                     u"\n"
                                     u"DELETE FROM 無い表\n"
                                     u"SELECT 無い列 FROM 予定\n"
                                     u"SELECT count(*) AS 数 FROM 予定 WHERE 時刻 = '11:00'"_s);
    const QStringList lines = result.output.split(u'\n');
    ASSERT_EQ(lines.size(), 9) << result.output.toStdString();
    EXPECT_EQ(lines[0], QString());
    EXPECT_THAT(lines[1].toStdString(), testing::StartsWith("! "));
    EXPECT_EQ(lines[2], QString());
    EXPECT_THAT(lines[3].toStdString(), testing::StartsWith("! "));
    EXPECT_THAT(lines[3].toStdString(), testing::EndsWith(" (8文字目)"));
    EXPECT_EQ(lines.mid(4), (QStringList{QString(), u"数"_s, u"2"_s, QString(), QString()}));
    EXPECT_EQ(result.status, 1);
}

TEST_F(Jetsql, TimesGoToTheStandardError)
{
    const ProgramResult result =
        run(u"SELECT No FROM バージョン情報\nDELETE FROM 予定\n"_s, {u"--time"_s});
    EXPECT_EQ(result.output, u"No\n1\n\n\n"_s);
    EXPECT_EQ(result.errors.count(u" ms\n"_s), 2);
}

TEST_F(Jetsql, OpensTheFileSharedUnlessToldOtherwise)
{
    ASSERT_TRUE(file.open(path(), QString::fromUtf16(core::DatabasePassword)));
    EXPECT_EQ(run(u"SELECT No FROM バージョン情報\n"_s).status, 0);
    const ProgramResult refused = run(u"DELETE FROM 予定\n"_s, {u"--exclusive"_s});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.output.toStdString(), testing::MatchesRegex("! .+\n\n"));
    file.close();
    EXPECT_EQ(run(u"SELECT No FROM バージョン情報\n"_s, {u"--exclusive"_s}).status, 0);
}

TEST_F(Jetsql, NeverMakesAFile)
{
    const QString missing = path() + u".mdb"_s;
    const ProgramResult result = runProgram(u"jetsql"_s, {missing}, u"SELECT 1 AS 一\n"_s);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output.toStdString(), testing::MatchesRegex("! .+\n\n"));
    EXPECT_FALSE(QFile::exists(missing));
}

} // namespace
