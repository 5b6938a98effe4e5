#include "customer/data/id_issuer.h"

#include "support/child_process.h"
#include "support/customer/data/customer_test.h"

#include <gmock/gmock.h>

#include <thread>

using namespace Qt::StringLiterals;
using customer::Kind;

namespace {

class NumberingTest : public OpenCustomerTest {
protected:
    // Rows of customers, those among them that are not numbered by themselves, and the last number.
    struct State {
        int rows = 0;
        int wrong = 0;
        qint64 last = 0;
    };

    State state()
    {
        return {valueOf(u"SELECT count(*) as ma1 FROM ユーザー"_s).toInt(),
                valueOf(u"SELECT count(*) as ma1 FROM ユーザー WHERE ﾕｰｻﾞｰID is null "
                        u"or ﾕｰｻﾞｰID <> ﾕｰｻﾞｰ更新ID"_s)
                    .toInt(),
                valueOf(u"SELECT ユーザー FROM 最新発番"_s).toLongLong()};
    }

    static bool addMany(const QString& path, int number, const ChildProcess::StepDone& stepDone)
    {
        OtherCopy copy(path);
        customer::CustomerFields fields;
        fields.texts = {u"ﾅﾏｴ"_s, u"名前"_s};
        for (int i = 0; i < number; ++i) {
            if (addCustomer(copy.file, fields) != core::SaveResult::Saved)
                return false;
            stepDone();
        }
        return copy.file.connection.errors().isEmpty();
    }
};

TEST_F(NumberingTest, EveryKindIsNumberedByItsOwnUpdateId)
{
    const QStringList counters{u"ユーザー"_s, u"件名"_s,         u"ログ"_s,     u"納品"_s,
                               u"リース"_s,   u"ユーザー関連"_s, u"件名関連"_s, u"自由項目名"_s,
                               u"予定"_s,     u"カスタム検索"_s};
    for (int number = 1; number <= 10; ++number) {
        const core::IdKind& kind = customer::idKind(static_cast<Kind>(number));
        EXPECT_EQ(kind.counterColumn, counters[number - 1]);
        EXPECT_EQ(core::appendNumbered(file, kind, {}), 1);
        EXPECT_EQ(core::appendNumbered(file, kind, {}), 2);
        // The highest number is not given out again.
        execute(u"DELETE FROM "_s + kind.table + u" WHERE "_s + kind.idColumn + u" = 2"_s);
        EXPECT_EQ(core::appendNumbered(file, kind, {}), 3);
        EXPECT_EQ(column(u"SELECT "_s + kind.idColumn + u" FROM "_s + kind.table),
                  (QStringList{u"1"_s, u"3"_s}));
        EXPECT_EQ(valueOf(u"SELECT "_s + kind.counterColumn + u" FROM 最新発番"_s), u"3");
    }
}

TEST_F(NumberingTest, TwoCopiesNeverNumberEachOthersRows)
{
    constexpr int Each = 200;
    CloseCustomerFile(file);
    ChildProcess first([this](const auto& stepDone) { return addMany(path(), Each, stepDone); });
    ChildProcess second([this](const auto& stepDone) { return addMany(path(), Each, stepDone); });
    EXPECT_TRUE(first.succeeded());
    EXPECT_TRUE(second.succeeded());
    ASSERT_TRUE(open());
    const State after = state();
    EXPECT_EQ(after.rows, 2 * Each);
    EXPECT_EQ(after.wrong, 0);
    EXPECT_EQ(after.last, 2 * Each);
    EXPECT_EQ(valueOf(u"SELECT Max(ﾕｰｻﾞｰ更新ID) as ma1 FROM ユーザー"_s),
              QString::number(2 * Each));
}

TEST_F(NumberingTest, AKillLeavesANumberedRowOrNone)
{
    CloseCustomerFile(file);
    int told = 0;
    for (int round = 0; round < 5; ++round) {
        ChildProcess adding(
            [this](const auto& stepDone) { return addMany(path(), 100000, stepDone); });
        const int steps = 3 + round;
        ASSERT_TRUE(adding.waitForSteps(steps));
        std::this_thread::sleep_for(std::chrono::microseconds(370 * round));
        told += steps + adding.killNow();

        ASSERT_TRUE(open());
        const State after = state();
        EXPECT_EQ(after.wrong, 0);
        EXPECT_EQ(after.last, after.rows);
        EXPECT_GE(after.rows, told); // what was told as saved is there
        told = after.rows;
        CloseCustomerFile(file);
    }
}

} // namespace
