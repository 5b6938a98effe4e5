#include "customer/data/customer_file.h"

#include "core/data/database_password.h"
#include "support/child_process.h"
#include "support/customer/data/customer_test.h"

#include <QElapsedTimer>

#include <thread>

using namespace Qt::StringLiterals;
using customer::OpenCustomerFile;
using storage::ErrorKind;
using storage::Mode;
using storage::schema::Version;

namespace {

using CustomerFileTest = CustomerTest;

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

TEST_F(CustomerFileTest, AKillDuringTheUpgradeLeavesOneVersionOrTheOther)
{
    const int kills = rounds("CORVANE_KILLS", 5);
    for (int round = 0; round < kills; ++round) {
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
            std::chrono::milliseconds(opening.elapsed() * (10 + round % 10) / 10));
        upgrading.killNow();

        storage::Connection after;
        ASSERT_TRUE(after.open(path(), QString::fromUtf16(core::DatabasePassword)));
        const storage::schema::Table* settings = after.catalog().find(u"設定");
        const storage::schema::Table* cases = after.catalog().find(u"件名");
        ASSERT_TRUE(settings && cases);
        EXPECT_EQ(settings->indexOf(u"ログプレ表示") >= 0, cases->indexOf(u"予定日") >= 0);
        after.close();
        ASSERT_TRUE(open());
        EXPECT_EQ(valueOf(u"SELECT ﾊﾞｰｼﾞｮﾝ FROM バージョン情報"_s), u"3.1.1");
        EXPECT_GE(file.connection.catalog().find(u"４印刷件名")->indexOf(u"予定日"), 0);
        CloseCustomerFile(file);
    }
}

} // namespace
