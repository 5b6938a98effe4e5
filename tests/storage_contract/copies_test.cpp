#include "storage_contract/scratch_file.h"

#include "storage/transaction.h"
#include "support/child_process.h"

#include <QRandomGenerator>
#include <QThread>

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

// Several copies of the program on one file: children, so that nothing is open here while they run.
class Copies : public ScratchFile {
protected:
    void SetUp() override
    {
        ScratchFile::SetUp();
        connection.close();
    }

    QList<ErrorKind> openFails(const QString& password = Password, Mode mode = Mode::ReadWrite)
    {
        Connection other;
        EXPECT_FALSE(other.open(data(), password, mode));
        EXPECT_FALSE(other.isOpen());
        return takeErrors(other);
    }

    // Appends a row and numbers it as the program numbers its records, in one transaction.
    static bool appendNumbered(Connection& on, int sender)
    {
        Transaction transaction(on);
        Recordset row;
        if (!transaction.isActive()
            || !row.open(u"品目"_s, on, CursorType::Dynamic, LockType::Optimistic) || !row.addNew()
            || !row.setValue(u"数量", sender) || !row.update()
            || !row.open(u"SELECT max(番号) AS 最大 FROM 品目"_s, on))
            return false;
        const QString number = row.text(u"最大");
        return row.open(u"SELECT * FROM 品目 WHERE 番号 = "_s + number, on, CursorType::Dynamic,
                        LockType::Optimistic)
            && row.setValue(u"名称", number) && row.update() && transaction.commit();
    }
};

TEST_F(Copies, TwoThatAppendAtOnceLoseAndMixUpNothing)
{
    constexpr int Each = 1000;
    const auto append = [this](int sender) {
        return [this, sender](const ChildProcess::StepDone&) {
            Connection own;
            bool done = own.open(data(), Password);
            for (int i = 0; i < Each && done; ++i)
                done = appendNumbered(own, sender);
            return done && own.errors().isEmpty();
        };
    };
    ChildProcess first(append(1));
    ChildProcess second(append(2));
    EXPECT_TRUE(first.succeeded());
    EXPECT_TRUE(second.succeeded());

    ASSERT_TRUE(connection.open(data(), Password));
    const QString count = u"SELECT count(*) AS 数 FROM 品目 WHERE "_s;
    EXPECT_EQ(rows(count + u"数量 = 1"_s), QStringList{QString::number(Each)});
    EXPECT_EQ(rows(count + u"数量 = 2"_s), QStringList{QString::number(Each)});
    Recordset all;
    ASSERT_TRUE(all.open(u"品目"_s, connection));
    for (; !all.eof(); all.moveNext())
        ASSERT_EQ(all.text(u"名称"), all.text(u"番号"));
    all.close();
    EXPECT_EQ(integrity(connection), u"ok"_s);
}

// Appends three rows at a time and tells of each commit, until it is killed.
bool appendUntilKilled(const Location& data, const ChildProcess::StepDone& committed)
{
    Connection own;
    if (!own.open(data, ScratchFile::Password))
        return false;
    while (true) {
        Transaction transaction(own);
        for (int part = 0; part < 3; ++part) {
            if (!own.execute(u"INSERT INTO 品目 (名称) VALUES ('"_s + QString(300 * part, u'長')
                             + u"')"_s))
                return false;
        }
        if (!transaction.commit())
            return false;
        committed();
    }
}

TEST_F(Copies, AKilledOneLeavesWholeTransactionsAndNoLock)
{
    const int kills = rounds("CORVANE_KILLS", 10);
    QRandomGenerator random(311);
    for (int kill = 0; kill < kills; ++kill) {
        SCOPED_TRACE(kill);
        ChildProcess child([this](const ChildProcess::StepDone& committed) {
            return appendUntilKilled(data(), committed);
        });
        ASSERT_TRUE(child.waitForSteps(1));
        QThread::usleep(random.bounded(20000u));
        const int acknowledged = 1 + child.killNow();

        ASSERT_TRUE(connection.open(data(), Password, Mode::ShareExclusive));
        EXPECT_EQ(integrity(connection), u"ok"_s);
        const int kept = rows(u"SELECT count(*) AS 数 FROM 品目"_s)[0].toInt();
        EXPECT_EQ(kept % 3, 0);
        EXPECT_GE(kept / 3, acknowledged);
        EXPECT_LE(kept / 3, acknowledged + 1);
        execute(u"DELETE FROM 品目"_s);
        connection.close();
    }
}

TEST_F(Copies, ExclusiveAndSharedShutEachOtherOut)
{
    ASSERT_TRUE(connection.open(data(), Password));
    EXPECT_EQ(openFails(Password, Mode::ShareExclusive), QList{ErrorKind::InUse});
    OtherCopy shared(data());
    EXPECT_EQ(rows(shared.connection, u"SELECT 内容 FROM 控え"_s), QStringList{u"最初"_s});
    shared.connection.close();
    connection.close();

    OtherCopy exclusive(data(), Mode::ShareExclusive);
    EXPECT_EQ(exclusive.connection.mode(), Mode::ShareExclusive);
    EXPECT_EQ(openFails(), QList{ErrorKind::InUse});
    EXPECT_EQ(openFails(Password, Mode::ShareExclusive), QList{ErrorKind::InUse});
    exclusive.connection.close();
    EXPECT_TRUE(connection.open(data(), Password, Mode::ShareExclusive));
}

TEST_F(Copies, AFailedOpenLeavesTheFileFree)
{
    EXPECT_EQ(openFails(u"違う"_s, Mode::ShareExclusive), QList{ErrorKind::Unreadable});
    EXPECT_TRUE(connection.open(data(), Password, Mode::ShareExclusive));
    EXPECT_FALSE(connection.open(data(), Password));
    EXPECT_EQ(takeErrors(), QList{ErrorKind::State});
    EXPECT_TRUE(connection.isOpen());
}

TEST_F(Copies, AnotherProcessIsShutOutAsAnotherCopyIs)
{
    const auto opens = [this](Mode mode) {
        return [this, mode](const ChildProcess::StepDone&) {
            Connection own;
            return own.open(data(), Password, mode) || own.lastError().kind != ErrorKind::InUse;
        };
    };
    {
        OtherCopy exclusive(data(), Mode::ShareExclusive);
        ChildProcess shared(opens(Mode::ReadWrite));
        EXPECT_FALSE(shared.succeeded());
        exclusive.connection.close();
    }
    ChildProcess again(opens(Mode::ShareExclusive));
    EXPECT_TRUE(again.succeeded());
}

} // namespace
