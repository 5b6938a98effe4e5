#include "core/data/database_password.h"
#include "programs/run_program.h"
#include "storage/connection.h"
#include "storage/recordset.h"
#include "storage/schema/catalog.h"
#include "support/files.h"
#include "support/scratch_folder.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

const QString templatePassword = QString::fromUtf16(core::DatabasePassword);

QString versionOf(storage::Connection& file, const QString& statement)
{
    storage::Recordset rows;
    return rows.open(statement, file) && !rows.eof() ? rows.value(0).toText() : QString();
}

TEST(Templates, AreWrittenInBothVersions)
{
    struct Case {
        QStringList options;
        QString version;
        bool hasAddedColumns;
    };
    for (const Case& each :
         {Case{{}, u"3.1.1"_s, true}, Case{{u"--version"_s, u"3.0.0"_s}, u"3.0.0"_s, false}}) {
        const ScratchFolder folder;
        ASSERT_EQ(runProgram(u"make_templates"_s, QStringList{folder.path()} + each.options).status,
                  0);
        const std::pair<QString, QString> addedTo[] = {{u"Corvane.mdb"_s, u"件名"_s},
                                                       {u"Care.mdb"_s, u"修理"_s}};
        for (const auto& [name, table] : addedTo) {
            storage::Connection file;
            ASSERT_TRUE(file.open(folder.filePath(name), templatePassword));
            EXPECT_EQ(versionOf(file, u"SELECT ﾊﾞｰｼﾞｮﾝ FROM バージョン情報 WHERE [No] = 1"_s),
                      each.version);
            const int column = file.catalog().find(table)->indexOf(u"最近更新日時");
            EXPECT_EQ(column >= 0, each.hasAddedColumns);
        }
        storage::Connection main;
        ASSERT_TRUE(main.open(folder.filePath(u"main.mdb"_s), templatePassword));
        EXPECT_EQ(versionOf(main, u"SELECT ﾃﾞｰﾀ FROM main WHERE [No] = 5"_s), each.version);
    }
}

TEST(Templates, AreNotWrittenOverAFile)
{
    const ScratchFolder folder;
    const QString path = folder.filePath(u"Care.mdb"_s);
    ASSERT_TRUE(writeBytes(path, "ours"));
    const ProgramResult result = runProgram(u"make_templates"_s, {folder.path()});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors.toStdString(), testing::HasSubstr("Care.mdb"));
    EXPECT_EQ(contentOf(path), "ours");
}

TEST(Templates, AskForAFolderAndAKnownVersion)
{
    const ScratchFolder folder;
    EXPECT_EQ(runProgram(u"make_templates"_s, {}).status, 1);
    EXPECT_EQ(runProgram(u"make_templates"_s, {u"--version"_s, u"3.0.1"_s, folder.path()}).status,
              1);
    EXPECT_FALSE(QFile::exists(folder.filePath(u"main.mdb"_s)));
}

} // namespace
