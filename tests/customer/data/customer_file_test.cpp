#include "customer/data/customer_file.h"

#include "core/data/database_password.h"
#include "customer/data/settings.h"
#include "support/child_process.h"
#include "support/customer/data/customer_test.h"

#include <QElapsedTimer>
#include <QFile>

#include <gmock/gmock.h>

#include <thread>

using namespace Qt::StringLiterals;
using customer::OpenCustomerFile;
using storage::ErrorKind;
using storage::Mode;
using storage::schema::Version;

namespace {

class CustomerFileTest : public CustomerTest {
protected:
    QString version() { return valueOf(u"SELECT ﾊﾞｰｼﾞｮﾝ FROM バージョン情報 WHERE [No] = 1"_s); }
    bool hasColumn(QStringView table, QStringView column)
    {
        const storage::schema::Table* found = file.connection.catalog().find(table);
        return found && found->indexOf(column) >= 0;
    }
};

TEST_F(CustomerFileTest, SaysWhyAFileCannotBeUsed)
{
    EXPECT_FALSE(OpenCustomerFile(file, path() + u"x"_s, Mode::ReadWrite));
    EXPECT_TRUE(messages.takeText().startsWith(u"データファイルを開けませんでした。\r\n"));
    EXPECT_EQ(takeErrors(), QList{ErrorKind::Missing});

    QFile::remove(path());
    storage::Connection repair;
    ASSERT_TRUE(repair.create(path(), QString::fromUtf16(core::DatabasePassword),
                              storage::schema::repairFile(Version::V311)));
    repair.close();
    EXPECT_FALSE(open());
    EXPECT_TRUE(messages.takeText().endsWith(u"顧客管理のデータファイルではありません。"));
    EXPECT_FALSE(file.connection.isOpen());
}

TEST_F(CustomerFileTest, IsSharedUnlessTakenForOneAlone)
{
    ASSERT_TRUE(open());
    OtherCopy other(path());
    EXPECT_FALSE(OpenCustomerFile(other.file, path(), Mode::ReadWrite)); // it is open already
    other.messages.takeBoxes();
    CloseCustomerFile(other.file);

    EXPECT_FALSE(OpenCustomerFile(other.file, path(), Mode::ShareExclusive));
    EXPECT_EQ(other.file.connection.lastError().kind, ErrorKind::InUse);
    EXPECT_EQ(other.messages.takeBoxes().size(), 1);
    CloseCustomerFile(file);
    EXPECT_TRUE(OpenCustomerFile(other.file, path(), Mode::ShareExclusive));
    EXPECT_FALSE(open());
    EXPECT_EQ(messages.takeBoxes().size(), 1);
    EXPECT_EQ(takeErrors(), QList{ErrorKind::InUse});
}

TEST_F(CustomerFileTest, UpgradesAFileThatHasSomeOfTheColumns)
{
    create(Version::V300);
    storage::Connection old;
    ASSERT_TRUE(old.open(path(), QString::fromUtf16(core::DatabasePassword)));
    ASSERT_TRUE(old.execute(u"ALTER TABLE 設定 ADD COLUMN ログプレ横幅 Long"_s));
    ASSERT_TRUE(old.execute(u"ALTER TABLE 件名 ADD COLUMN 予定日 STRING(13)"_s));
    ASSERT_TRUE(old.execute(u"UPDATE 設定 SET ログプレ横幅 = 1, 顧客表示数 = 30"_s));
    ASSERT_TRUE(old.execute(u"INSERT INTO ユーザー (表示名ﾌﾘｶﾞﾅ, 表示名) VALUES ('ｱ', '旧')"_s));
    old.close();

    ASSERT_TRUE(open());
    EXPECT_EQ(takeErrors().size(), 2); // the two columns that were there
    EXPECT_EQ(version(), u"3.1.1");
    const customer::Settings settings = customer::readSettings(file);
    EXPECT_EQ(settings.previewWidth, 9150);
    EXPECT_EQ(settings.previewHeight, 2085);
    EXPECT_EQ(settings.recentCaseDays, 7);
    EXPECT_EQ(settings.customersShown, 30);
    EXPECT_EQ(settings.stamp, u"2024/04/15 10:30:00.000");
    EXPECT_TRUE(hasColumn(u"４印刷件名", u"予定日"));
    EXPECT_EQ(column(u"SELECT 表示名 FROM ユーザー WHERE 最近更新日時 is null"_s),
              QStringList{u"旧"_s});

    // The defaults are written once only.
    execute(u"UPDATE 設定 SET ログプレ横幅 = 5000"_s);
    CloseCustomerFile(file);
    ASSERT_TRUE(open());
    EXPECT_EQ(customer::readSettings(file).previewWidth, 5000);
}

TEST_F(CustomerFileTest, LeavesOtherVersionsAlone)
{
    for (const QString& other : {u"2.9.0"_s, u""_s}) {
        create(Version::V300);
        storage::Connection old;
        ASSERT_TRUE(old.open(path(), QString::fromUtf16(core::DatabasePassword)));
        ASSERT_TRUE(old.execute(u"UPDATE バージョン情報 SET ﾊﾞｰｼﾞｮﾝ = '"_s + other + u'\''));
        old.close();
        ASSERT_TRUE(open());
        EXPECT_EQ(version(), other);
        EXPECT_FALSE(hasColumn(u"設定", u"ログプレ表示"));
        CloseCustomerFile(file);
    }
}

TEST_F(CustomerFileTest, AKillDuringTheUpgradeLeavesOneVersionOrTheOther)
{
    for (int round = 0; round < 5; ++round) {
        create(Version::V300);
        ChildProcess upgrading([this](const auto& stepDone) {
            storage::Connection probe; // as long as this takes, the next opening takes at least
            probe.open(path(), QString::fromUtf16(core::DatabasePassword));
            probe.close();
            stepDone();
            OtherCopy other(path());
            return true;
        });
        QElapsedTimer opening;
        opening.start();
        ASSERT_TRUE(upgrading.waitForSteps(1));
        std::this_thread::sleep_for(
            std::chrono::milliseconds(opening.elapsed() * (10 + round) / 10));
        upgrading.killNow();

        storage::Connection after;
        ASSERT_TRUE(after.open(path(), QString::fromUtf16(core::DatabasePassword)));
        const storage::schema::Table* settings = after.catalog().find(u"設定");
        const storage::schema::Table* cases = after.catalog().find(u"件名");
        ASSERT_TRUE(settings && cases);
        EXPECT_EQ(settings->indexOf(u"ログプレ表示") >= 0, cases->indexOf(u"予定日") >= 0);
        after.close();
        ASSERT_TRUE(open());
        EXPECT_EQ(version(), u"3.1.1");
        EXPECT_TRUE(hasColumn(u"４印刷件名", u"予定日"));
        CloseCustomerFile(file);
    }
}

} // namespace
