#include "support/child_process.h"
#include "support/customer/data/customer_test.h"
#include "support/storage/refusals.h"

#include <QFileInfo>
#include <QRandomGenerator>
#include <QThread>

#include <gmock/gmock.h>

#include <list>

using namespace Qt::StringLiterals;

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
        const records::FieldValues fields = named(u"名前"_s, u"ﾅﾏｴ"_s);
        for (int i = 0; i < number; ++i) {
            if (addRecord(copy.file, customer::customerTable(), {}, fields)
                != records::SaveResult::Saved)
                return false;
            stepDone();
        }
        return copy.file.connection.errors().isEmpty();
    }
};

// Two that write without a pause, and so many that each has to wait for all the others.
TEST_F(NumberingTest, CopiesNeverNumberEachOthersRowsAndNoneIsRefused)
{
    int before = 0;
    for (const auto& [number, each] :
         {std::pair(2, rounds("CORVANE_ADDS", 200)), std::pair(20, rounds("CORVANE_ADDS", 10))}) {
        SCOPED_TRACE(number);
        CloseCustomerFile(file);
        std::list<ChildProcess> copies;
        for (int i = 0; i < number; ++i) {
            copies.emplace_back(
                [&, each = each](const auto& stepDone) { return addMany(path(), each, stepDone); });
        }
        for (ChildProcess& copy : copies)
            EXPECT_TRUE(copy.succeeded());
        ASSERT_TRUE(open());
        const State after = state();
        EXPECT_EQ(after.rows, before + number * each);
        EXPECT_EQ(after.wrong, 0);
        EXPECT_EQ(after.last, after.rows);
        before = after.rows;
    }
}

TEST_F(NumberingTest, AKillLeavesANumberedRowOrNone)
{
    CloseCustomerFile(file);
    QRandomGenerator random(311);
    int inAWrite = 0;
    int told = 0;
    for (int round = rounds("CORVANE_KILLS", 10); round > 0; --round) {
        ChildProcess adding(
            [this](const auto& stepDone) { return addMany(path(), 100000, stepDone); });
        ASSERT_TRUE(adding.waitForSteps(2));
        QThread::usleep(random.bounded(10000u)); // somewhere in the adds that follow
        told += 2 + adding.killNow();

        inAWrite += QFileInfo::exists(path() + u"-journal"_s);
        ASSERT_TRUE(open());
        const State after = state();
        EXPECT_EQ(after.wrong, 0);
        EXPECT_EQ(after.last, after.rows);
        EXPECT_GE(after.rows, told); // what was told as saved is there
        EXPECT_LE(after.rows, told + 1);
        EXPECT_EQ(integrity(file.connection), u"ok"_s);
        told = after.rows;
        CloseCustomerFile(file);
    }
    RecordProperty("kills_in_a_write", inAWrite);
}

} // namespace
