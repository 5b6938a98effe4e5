#include "customer/data/customer_file.h"

#include "core/data/database_password.h"
#include "storage/engine/engine.h"
#include "support/child_process.h"
#include "support/customer/data/customer_test.h"
#include "support/storage/former_format.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using customer::OpenCustomerFile;
using storage::ErrorKind;
using storage::Mode;
using storage::schema::Version;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

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
    const auto upgrade = [this] {
        OtherCopy other(path());
        return other.file.connection.isOpen();
    };
    const auto look = [this] {
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
    };
    killAtAllMoments(
        rounds("CORVANE_KILLS", 10), [this] { create(Version::V300); }, upgrade, look);
}

// A customer file as the program before this one has made it: its days and its recorders stand in
// indexes over their keys.
class FormerFileTest : public CustomerTest {
protected:
    void SetUp() override
    {
        CustomerTest::SetUp();
        ASSERT_TRUE(open());
        const QStringList today = indexNames(file.connection);
        for (const QString& name : today) {
            if (name.contains(u"日(fold)"_s) || name.contains(u"日付(fold)"_s))
                run(u"DROP INDEX \""_s + name + u'"');
        }
        for (const QString& index : {u"件名_登録日 ON 件名 (corvane_key(登録日), 件名ID"_s,
                                     u"件名_予定日 ON 件名 (corvane_fold(予定日)"_s,
                                     u"ログ_記録者 ON ログ (corvane_key(記録者)"_s})
            run(u"CREATE INDEX _"_s + index + u')');
        makeFormerFormat(file.connection);
        m_today = today;
        CloseCustomerFile(file);
    }

    void run(const QString& statement)
    {
        ASSERT_FALSE(file.connection.session()->run({statement, {}}, nullptr));
    }

    QStringList m_today; // the indexes of a new file
};

TEST_F(FormerFileTest, IsConvertedAtItsFirstOpeningAlone)
{
    {
        storage::Connection another;
        ASSERT_TRUE(another.open(path(), QString::fromUtf16(core::DatabasePassword)));
        ASSERT_TRUE(open());
        EXPECT_TRUE(hasFormerFormat(file.connection));
        CloseCustomerFile(file);
    }
    for (int opening = 0; opening < 2; ++opening) {
        ASSERT_TRUE(open());
        EXPECT_FALSE(hasFormerFormat(file.connection));
        EXPECT_EQ(indexNames(file.connection), m_today);
        CloseCustomerFile(file);
    }
}

// Without statistics the engine has to see by itself that an index gives the order.
TEST_F(FormerFileTest, ThenEveryOrderOfDaysIsReadFromAnIndex)
{
    ASSERT_TRUE(open());
    const QString cases =
        u"SELECT * FROM ユーザー INNER JOIN 件名 ON "
        "(ユーザー.ﾕｰｻﾞｰ識別ID = 件名.件名識別ID) AND (ユーザー.ﾕｰｻﾞｰID = 件名.ﾕｰｻﾞｰID)"_s;
    for (
        const QString& statement : {
            cases + u" ORDER BY 件名.登録日 ,件名.件名ID"_s,
            cases + u" ORDER BY 件名.登録日 DESC ,件名.件名ID DESC"_s,
            cases + u" ORDER BY 件名.予定日 ,件名.件名ID"_s,
            cases + u" WHERE 件名.判定 = '続行' ORDER BY 件名.登録日 ,件名.件名ID"_s,
            u"SELECT max(登録日) FROM 件名"_s,
            u"SELECT * From 予定 WHERE 日付 Between '2024/04/01' And '2024/04/30(火)' ORDER BY 日付,時刻"_s,
        }) {
        const QStringList plan = planOf(file.connection, statement);
        EXPECT_THAT(plan, Contains(testing::Property(&QString::toStdString, HasSubstr("(fold)"))))
            << statement.toStdString();
        EXPECT_THAT(
            plan, Not(Contains(testing::Property(&QString::toStdString, HasSubstr("TEMP B-TREE")))))
            << statement.toStdString();
    }
    const QStringList days = planOf(
        file.connection,
        cases + u" WHERE 件名.登録日 Like '2024/04/15(月)' OR 件名.予定日 Like '2024/04/15(月)'"_s);
    EXPECT_THAT(days,
                Contains(testing::Property(&QString::toStdString, HasSubstr("登録日(fold)"))));
    EXPECT_THAT(days,
                Contains(testing::Property(&QString::toStdString, HasSubstr("予定日(fold)"))));
}

// The upgrade adds the planned day by a statement that cannot say so.
TEST_F(FormerFileTest, APlannedDayThatTheUpgradeAddedIsOneToo)
{
    create(storage::schema::Version::V300);
    ASSERT_TRUE(open());
    const storage::schema::Table* cases = file.connection.catalog().find(u"件名");
    const int place = cases->indexOf(u"予定日");
    ASSERT_GE(place, 0);
    EXPECT_TRUE(cases->columns()[place].isDay);
    EXPECT_EQ(cases->columns()[place].maxLength, 13);
    EXPECT_EQ(indexNames(file.connection), m_today);
}

} // namespace
