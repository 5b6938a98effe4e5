#include "core/data/main_database.h"
#include "core/data/program_folder.h"
#include "core/data/start_up.h"
#include "support/child_process.h"
#include "support/core/data/core_test.h"

#include <QFile>

#include <gmock/gmock.h>

#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;
using storage::ErrorKind;
using storage::schema::Version;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using Box = ScriptedMessages::Box;

namespace {

const QString versionRow = u"SELECT [No],ﾃﾞｰﾀ FROM main WHERE 種類 = 'ﾊﾞｰｼﾞｮﾝ'"_s;
const QString prices = u"SELECT 売値 FROM 共通部品"_s;

class StartUp : public CoreTest {
protected:
    bool start() { return core::Main(shared, {folder(), {}}); }

    // A main.mdb of the older version with some parts in it.
    void makeOldFolder(int parts)
    {
        makeFolder(Version::V300);
        core::Shared setUp(messages, clock);
        setUp.programFolder = folder();
        core::OpenMainDatabase(setUp);
        setUp.MainConnection->begin();
        for (int i = 0; i < parts; ++i)
            EXPECT_TRUE(
                setUp.MainConnection->execute(u"INSERT INTO 共通部品 (名称) VALUES ('部品')"_s));
        EXPECT_TRUE(setUp.MainConnection->commit());
    }
};

} // namespace

TEST_F(StartUp, SetsTheSharedState)
{
    makeFolder();
    shared.EndOnMenuClose = false;
    shared.CustomerDataPath = u"old"_s;
    ASSERT_TRUE(start());
    EXPECT_TRUE(shared.EndOnMenuClose);
    EXPECT_TRUE(shared.CustomerDataPath.isEmpty());
    EXPECT_EQ(shared.AppTitle, u"コルヴァン３"_s);
    EXPECT_EQ(shared.HelpFilePath, file(u"コルヴァン３ヘルプ.chm"_s));
    EXPECT_THAT(rows(versionRow), ElementsAre(u"5|3.1.1"_s));
}

TEST_F(StartUp, ASecondCopyIsRefusedBeforeItOpensAnything)
{
    makeFolder();
    QFile::link(folder(), folder() + u"/alias"_s);
    ASSERT_TRUE(start());

    core::Shared second(messages, clock);
    EXPECT_FALSE(core::Main(second, {folder() + u"/alias"_s, {}}));
    EXPECT_THAT(messages.takeBoxes(),
                ElementsAre(Box{16, u"すでに「コルヴァン３」は起動されています。"_s}));
    EXPECT_FALSE(second.MainConnection);
}

TEST_F(StartUp, AKilledCopyDoesNotKeepTheNextFromStarting)
{
    makeFolder();
    {
        ChildProcess copy([this] {
            start();
            std::this_thread::sleep_for(std::chrono::seconds(30));
            return true;
        });
        for (int i = 0; i < 500 && !QFile::exists(file(u"main.ldb"_s)); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        copy.killNow();
    }
    EXPECT_TRUE(start());
}

TEST_F(StartUp, AMissingMainDatabaseIsSkippedSilently)
{
    EXPECT_TRUE(start());
    EXPECT_THAT(messages.takeBoxes(), IsEmpty());
    EXPECT_FALSE(QFile::exists(file(u"main.mdb"_s)));
    EXPECT_THAT(takeErrors(), testing::Contains(ErrorKind::Missing));
}

TEST_F(StartUp, UpgradesAnOlderDatabaseOnce)
{
    makeOldFolder(3);
    ASSERT_TRUE(start());
    EXPECT_THAT(rows(prices), ElementsAre(u"0"_s, u"0"_s, u"0"_s));
    EXPECT_THAT(rows(versionRow), ElementsAre(u"5|3.1.1"_s));
    EXPECT_THAT(rows(u"SELECT DISTINCT 更新日時 FROM 共通部品"_s),
                ElementsAre(u"2024/04/15 10:30:00.000"_s));

    // Prices entered since then stay.
    execute(u"UPDATE 共通部品 SET 売値 = 500"_s);
    core::CheckVersion(shared);
    EXPECT_THAT(rows(prices), Each(u"500"_s));
}

TEST_F(StartUp, AColumnThatIsThereDoesNotStopTheUpgrade)
{
    makeOldFolder(1);
    shared.programFolder = folder();
    core::OpenMainDatabase(shared);
    execute(u"ALTER TABLE 共通部品 ADD COLUMN 売値 Long"_s);
    core::CheckVersion(shared);
    EXPECT_EQ(takeErrors().size(), 1);
    EXPECT_THAT(rows(prices), ElementsAre(u"0"_s));
    EXPECT_THAT(rows(versionRow), ElementsAre(u"5|3.1.1"_s));
}

TEST_F(StartUp, OtherVersionsAreLeftAlone)
{
    makeOldFolder(1);
    shared.programFolder = folder();
    core::OpenMainDatabase(shared);
    for (const QString& statement :
         {u"UPDATE main SET ﾃﾞｰﾀ = '2.9' WHERE [No] = 5"_s, u"DELETE FROM main WHERE [No] = 5"_s}) {
        execute(statement);
        core::CheckVersion(shared);
        EXPECT_THAT(rows(prices), IsEmpty());
        EXPECT_THAT(takeErrors(), ElementsAre(ErrorKind::Name)); // still no such column
    }
}

TEST_F(StartUp, AnUpgradeThatIsKilledLeavesTheOldVersionOrTheNew)
{
    constexpr int Parts = 400;
    makeOldFolder(Parts);
    ASSERT_TRUE(QFile::copy(file(u"main.mdb"_s), file(u"old"_s)));
    const auto prepare = [this] {
        QFile::remove(file(u"main.mdb"_s));
        ASSERT_TRUE(QFile::copy(file(u"old"_s), file(u"main.mdb"_s)));
    };
    const auto look = [this] {
        shared.programFolder = folder();
        core::OpenMainDatabase(shared);
        ASSERT_TRUE(shared.MainConnection->isOpen());
        if (rows(versionRow) == QStringList{u"5|3.1.1"_s}) {
            EXPECT_EQ(rows(prices), QStringList(Parts, u"0"_s));
        } else {
            EXPECT_THAT(rows(versionRow), ElementsAre(u"5|3.0.0"_s));
            EXPECT_THAT(rows(prices), IsEmpty());
            EXPECT_THAT(takeErrors(), ElementsAre(ErrorKind::Name));
        }
        core::CloseMainDatabase(shared);
    };
    killAtAllMoments(
        50, prepare, [this] { return start(); }, look);
}
