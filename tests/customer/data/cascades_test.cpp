#include "customer/data/deliveries.h"
#include "customer/data/free_items.h"
#include "customer/data/print_tables.h"
#include "customer/data/shortcuts.h"
#include "storage/recordset.h"
#include "storage/transaction.h"
#include "support/child_process.h"
#include "support/customer/data/customer_test.h"
#include "support/storage/refusals.h"

#include <QFileInfo>
#include <QRandomGenerator>
#include <QThread>

using namespace Qt::StringLiterals;
using namespace customer;
using records::Cascade;

namespace {

const QStringList Tables{u"ユーザー"_s,         u"件名"_s,         u"ログ"_s,
                         u"納品リスト"_s,       u"リースリスト"_s, u"ユーザー関連ファイル"_s,
                         u"件名関連ファイル"_s, u"自由項目名"_s,   u"項目内容"_s};

class CascadesTest : public OpenCustomerTest {
protected:
    // Everything that a customer, a case, a delivery and a free item with these IDs and marks can
    // own.
    static void fill(customer::CustomerFile& into, int id, int mark)
    {
        const QString values = QString::number(id) + u", "_s + QString::number(mark) + u')';
        const QString pair = QString::number(id) + u", "_s + values;
        for (const QString& statement : {
                 u"INSERT INTO ユーザー (ﾕｰｻﾞｰID, ﾕｰｻﾞｰ識別ID) VALUES ("_s + values,
                 u"INSERT INTO 件名 (ユーザーID, 件名ID, 件名識別ID) VALUES ("_s + pair,
                 u"INSERT INTO ログ (ユーザーID, 件名ID, ログ識別ID) VALUES ("_s + pair,
                 u"INSERT INTO 納品リスト (ユーザーID, 納品ID, 納品識別ID) VALUES ("_s + pair,
                 u"INSERT INTO リースリスト (ユーザーID, 納品ID, ﾘｰｽ識別ID) VALUES ("_s + pair,
                 u"INSERT INTO ユーザー関連ファイル (ﾕｰｻﾞｰID, ﾕｰｻﾞｰ関連ID, ﾕｰｻﾞｰ関連識別ID)"_s
                     + u" VALUES ("_s + pair,
                 u"INSERT INTO 件名関連ファイル (ユーザーID, 件名ID, 件名関連ID, 件名関連識別ID)"_s
                     + u" VALUES ("_s + QString::number(id) + u", "_s + pair,
                 u"INSERT INTO 自由項目名 (項目ID, 項目識別ID) VALUES ("_s + values,
                 u"INSERT INTO 項目内容 (ユーザーID, 項目ID, ﾕｰｻﾞｰ識別ID, 内容識別ID)"_s
                     + u" VALUES ("_s + QString::number(id) + u", "_s + QString::number(id)
                     + u", "_s + QString::number(mark) + u", "_s + QString::number(mark) + u')',
             }) {
            execute(into, statement);
        }
    }

    // Nothing but these owners 1, 2, … and one row each of what they can own.
    void fillOwners(int number)
    {
        storage::Transaction filling(file.connection);
        for (const QString& table : Tables)
            execute(u"DELETE FROM "_s + table);
        for (int id = 1; id <= number; ++id)
            fill(file, id, 0);
        EXPECT_TRUE(filling.commit());
    }
    // Of rows given by update ID and ID.
    static QList<core::RecordKey> keys(customer::CustomerFile& of, const QString& query)
    {
        QList<core::RecordKey> found;
        storage::Recordset row;
        EXPECT_TRUE(row.open(query, of.connection));
        for (; !row.eof(); row.moveNext())
            found.append({row.value(0).toInteger(), 0, row.value(1).toInteger(), {}});
        return found;
    }

    int rowsIn(const QString& table)
    {
        return valueOf(u"SELECT count(*) as ma1 FROM "_s + table).toInt();
    }
    // The rows left of each table.
    QList<int> rows()
    {
        QList<int> counts;
        for (const QString& table : Tables)
            counts.append(rowsIn(table));
        return counts;
    }
};

TEST_F(CascadesTest, TakeAllOfTheOwnerAndNothingOfAnother)
{
    // Owners 1/0, 1/7 (same ID, another mark) and 2/0; the rows of the first come first.
    const struct {
        Cascade cascade;
        QList<int> left; // of three rows each, by table
    } expected[] = {
        {customerTable().cascade, {2, 2, 2, 2, 2, 2, 2, 3, 2}},
        {caseTable().cascade, {3, 2, 2, 3, 3, 3, 2, 3, 3}},
        {deliveryTable().cascade, {3, 3, 3, 2, 2, 3, 3, 3, 3}},
        {freeItemTable().cascade, {3, 3, 3, 3, 3, 3, 3, 2, 2}},
        {logTable().cascade, {3, 3, 2, 3, 3, 3, 3, 3, 3}},
        {leaseTable().cascade, {3, 3, 3, 3, 2, 3, 3, 3, 3}},
        {freeItemValueCascade(), {3, 3, 3, 3, 3, 3, 3, 3, 2}},
        {customerFiles().table.cascade, {3, 3, 3, 3, 3, 2, 3, 3, 3}},
        {caseFiles().table.cascade, {3, 3, 3, 3, 3, 3, 2, 3, 3}},
    };
    int updateId = 1; // of the first rows; the numbers go on after the deletes
    for (const auto& each : expected) {
        for (const QString& table : Tables)
            execute(u"DELETE FROM "_s + table);
        fill(file, 1, 0);
        fill(file, 1, 7);
        fill(file, 2, 0);
        EXPECT_TRUE(runCascade(file, each.cascade, {updateId, 0, 1, {}}));
        EXPECT_EQ(rows(), each.left) << each.cascade.first().text.toStdString();
        EXPECT_EQ(column(u"SELECT ログ識別ID FROM ログ WHERE ユーザーID = 1 and ログ識別ID = 7"_s),
                  QStringList{u"7"_s});
        updateId += 3;
    }
}

// A value belongs to the customer by the customer's mark, whatever the mark of its item is.
TEST_F(CascadesTest, ACustomersValuesOfAMergedItemGoAndAnothersStay)
{
    execute(u"INSERT INTO 項目内容 (ユーザーID, ﾕｰｻﾞｰ識別ID, 内容識別ID) VALUES (1, 0, 7)"_s);
    execute(u"INSERT INTO 項目内容 (ユーザーID, ﾕｰｻﾞｰ識別ID, 内容識別ID) VALUES (1, 7, 0)"_s);
    EXPECT_TRUE(runCascade(file, customerTable().cascade, {1, 0, 1, {}}));
    EXPECT_EQ(column(u"SELECT ﾕｰｻﾞｰ識別ID FROM 項目内容"_s), QStringList{u"7"_s});
}

TEST_F(CascadesTest, PrintTablesAreEmptied)
{
    for (const QString& table : {u"２印刷自由項目内容"_s, u"３印刷納品"_s, u"４印刷件名"_s})
        execute(u"INSERT INTO "_s + table + u" (上部連結) VALUES (1)"_s);
    EXPECT_TRUE(runCascade(file, printTablesEmptied()));
    EXPECT_EQ(valueOf(u"SELECT count(*) as ma1 FROM ４印刷件名"_s), u"0");
}

TEST_F(CascadesTest, AKillLeavesAWholeCascadeOrNone)
{
    constexpr int Owners = 30;
    const struct {
        Cascade cascade;
        QString owner;
        QStringList goes; // each owner has one row in each
    } killed[] = {
        {customerTable().cascade, u"SELECT ﾕｰｻﾞｰ更新ID, ﾕｰｻﾞｰID FROM ユーザー"_s,
         Tables.first(7) + Tables.last(1)},
        {caseTable().cascade,
         u"SELECT 件名更新ID, 件名ID FROM 件名"_s,
         {u"件名"_s, u"ログ"_s, u"件名関連ファイル"_s}},
    };
    QRandomGenerator random(311);
    int inAWrite = 0;
    for (const auto& each : killed) {
        for (int round = rounds("CORVANE_KILLS", 10); round > 0; --round) {
            fillOwners(Owners);
            CloseCustomerFile(file);
            ChildProcess deleting([&](const auto& stepDone) {
                OtherCopy other(path());
                for (const core::RecordKey& key : keys(other.file, each.owner)) {
                    if (runCascade(other.file, each.cascade, key))
                        stepDone();
                }
                return true;
            });
            ASSERT_TRUE(deleting.waitForSteps(1));
            QThread::usleep(random.bounded(10000u)); // somewhere in the next ones
            const int told = 1 + deleting.killNow();

            inAWrite += QFileInfo::exists(path() + u"-journal"_s);
            ASSERT_TRUE(open());
            const int left = rowsIn(each.goes.first());
            for (const QString& table : Tables)
                EXPECT_EQ(rowsIn(table), each.goes.contains(table) ? left : Owners);
            EXPECT_LE(left, Owners - told);
            EXPECT_GE(left, Owners - told - 1);
            EXPECT_EQ(integrity(file.connection), u"ok"_s);
        }
    }
    RecordProperty("kills_in_a_write", inAWrite);
}

} // namespace
