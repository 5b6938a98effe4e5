#include "storage_contract/scratch_file.h"

#include "storage/schema/catalog.h"
#include "storage/transaction.h"

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

const QString AllNames = u"SELECT 名称 FROM 品目 ORDER BY 番号"_s;

class Transactions : public ScratchFile {
protected:
    void add(const QString& name)
    {
        execute(u"INSERT INTO 品目 (名称) VALUES ('"_s + name + u"')"_s);
    }
};

TEST_F(Transactions, CountTheRowsThatStatementsWrite)
{
    fill(5);
    qint64 affected = -1;
    ASSERT_TRUE(connection.execute(u"UPDATE 品目 SET 単価 = 1 WHERE 数量 > 2"_s, &affected));
    EXPECT_EQ(affected, 3);
    ASSERT_TRUE(connection.execute(u"UPDATE 品目 SET 単価 = 1 WHERE 数量 > 9"_s, &affected));
    EXPECT_EQ(affected, 0);
    ASSERT_TRUE(connection.execute(u"DELETE FROM 品目"_s, &affected));
    EXPECT_EQ(affected, 5);
    ASSERT_TRUE(connection.execute(u"ALTER TABLE 品目 ADD COLUMN 棚 Long"_s, &affected));
    EXPECT_EQ(affected, 0);
    ASSERT_TRUE(connection.execute(u"SELECT * FROM 控え"_s, &affected));
    EXPECT_EQ(affected, 0);
}

TEST_F(Transactions, NestAndEachLevelUndoesItsOwn)
{
    {
        Transaction outer(connection);
        add(u"甲"_s);
        {
            Transaction inner(connection);
            EXPECT_EQ(connection.transactionDepth(), 2);
            add(u"乙"_s);
        }
        {
            Transaction inner(connection);
            add(u"丙"_s);
            Transaction innermost(connection);
            add(u"丁"_s);
            innermost.rollBack();
            EXPECT_TRUE(inner.commit());
        }
        EXPECT_TRUE(outer.commit());
    }
    EXPECT_EQ(rows(AllNames), (QStringList{u"甲"_s, u"丙"_s}));
    {
        Transaction outer(connection);
        Transaction inner(connection);
        add(u"戊"_s);
        EXPECT_TRUE(inner.commit());
    }
    EXPECT_EQ(rows(AllNames).size(), 2);
    EXPECT_FALSE(connection.commit());
    EXPECT_FALSE(connection.rollBack());
    EXPECT_EQ(takeErrors(), (QList{ErrorKind::State, ErrorKind::State}));
}

TEST_F(Transactions, EndTheWrongWayRoundAsNothing)
{
    Transaction outer(connection);
    ASSERT_TRUE(connection.begin());
    add(u"甲"_s);
    EXPECT_FALSE(outer.commit());
    EXPECT_EQ(connection.transactionDepth(), 0);
    EXPECT_EQ(takeErrors(), QList{ErrorKind::State});
    EXPECT_TRUE(rows(AllNames).isEmpty());
}

TEST_F(Transactions, RollBackWhenTheConnectionCloses)
{
    Transaction transaction(connection);
    add(u"甲"_s);
    connection.close();
    EXPECT_FALSE(transaction.commit());
    EXPECT_EQ(takeErrors(), QList{ErrorKind::State});
    ASSERT_TRUE(connection.open(data(), Password));
    EXPECT_TRUE(rows(AllNames).isEmpty());
}

TEST_F(Transactions, AFailedStatementLeavesTheOthersStanding)
{
    Transaction transaction(connection);
    add(u"甲"_s);
    EXPECT_FALSE(connection.execute(u"INSERT INTO 品目 (番号) VALUES (1)"_s));
    EXPECT_EQ(takeErrors(), QList{ErrorKind::Constraint});
    add(u"乙"_s);
    EXPECT_TRUE(transaction.commit());
    EXPECT_EQ(rows(AllNames), (QStringList{u"甲"_s, u"乙"_s}));
}

// The engine undoes the whole transaction; what follows in it may not be written by itself.
TEST_F(Transactions, AFullDiskChangesNothing)
{
    add(u"前"_s);
    limitSize(connection, 2);
    const QString bulk = QString(20000, u'長');
    {
        Transaction transaction(connection);
        add(u"甲"_s);
        EXPECT_FALSE(connection.execute(u"INSERT INTO 品目 (名称) VALUES ('"_s + bulk + u"')"_s));
        EXPECT_EQ(connection.lastError().kind, ErrorKind::Full);
        EXPECT_TRUE(
            connection.lastError().message.startsWith(u"ディスクの空き容量が不足しています。"));
        Recordset rows;
        ASSERT_TRUE(rows.open(u"品目"_s, connection, CursorType::Dynamic, LockType::Optimistic));
        ASSERT_TRUE(rows.addNew() && rows.setValue(u"名称", u"短"_s));
        EXPECT_FALSE(rows.update());
        EXPECT_FALSE(transaction.commit());
    }
    EXPECT_EQ(takeErrors(), (QList{ErrorKind::Full, ErrorKind::State, ErrorKind::State}));
    EXPECT_EQ(rows(AllNames), QStringList{u"前"_s});
    EXPECT_EQ(integrity(connection), u"ok"_s);
    add(u"後"_s);
}

TEST_F(Transactions, AnotherCopysLockIsWaitedForAndThenBusy)
{
    OtherCopy other(data());
    shortenWaiting(other.connection);
    Transaction transaction(connection);
    add(u"甲"_s);
    EXPECT_TRUE(rows(other.connection, AllNames).isEmpty()); // reading goes on
    EXPECT_FALSE(other.connection.begin());
    EXPECT_FALSE(other.connection.execute(u"DELETE FROM 品目"_s));
    EXPECT_EQ(takeErrors(other.connection), (QList{ErrorKind::Busy, ErrorKind::Busy}));
    EXPECT_EQ(other.connection.transactionDepth(), 0);
    EXPECT_TRUE(transaction.commit());
    execute(other.connection, u"DELETE FROM 品目"_s);
}

TEST_F(Transactions, TablesAreKnownAsTheyAreNow)
{
    const auto columns = [this] { return connection.catalog().find(u"控え")->columns().size(); };
    EXPECT_EQ(columns(), 2);
    {
        Transaction transaction(connection);
        execute(u"ALTER TABLE 控え ADD COLUMN 予定日 STRING(13)"_s);
        EXPECT_EQ(columns(), 3);
    }
    EXPECT_EQ(columns(), 2);
    {
        Transaction outer(connection);
        {
            Transaction inner(connection);
            execute(u"ALTER TABLE 控え ADD COLUMN 予定日 STRING(13)"_s);
            EXPECT_TRUE(inner.commit());
        }
        EXPECT_FALSE(connection.execute(u"ALTER TABLE 控え ADD COLUMN 予定日 date"_s));
        takeErrors();
    }
    EXPECT_EQ(columns(), 2);

    // Another copy upgrades the file; the new column is found when it is asked for.
    OtherCopy other(data());
    execute(other.connection, u"ALTER TABLE 控え ADD COLUMN 日時 date"_s);
    execute(u"UPDATE 控え SET 日時 = #2004/02/29#"_s);
    EXPECT_EQ(rows(u"SELECT 日時 FROM 控え"_s), QStringList{u"2004/02/29 00:00:00.000"_s});
    ASSERT_EQ(columns(), 3);
    const schema::Column added = connection.catalog().find(u"控え")->columns().last();
    EXPECT_EQ(added.type, schema::ColumnType::DateTime);
}

} // namespace
