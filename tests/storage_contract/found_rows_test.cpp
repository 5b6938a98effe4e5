#include "storage_contract/scratch_file.h"

#include "storage/schema/table_builder.h"
#include "storage/transaction.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

// Rows that are found by their addresses are those that one statement gives, in its order. Enough
// of them that each way to find them is gone: few by the condition's index, on the way in the
// list's order, and all that the condition lets through.
class FoundRows : public ScratchFile {
protected:
    static constexpr int Rows = 9000;

    void SetUp() override
    {
        ScratchFile::SetUp();
        schema::Definition indexed = definition();
        indexed.indexes.append(schema::index(
            u"品目"_s,
            {{u"ﾒｰｶｰ"_s, schema::IndexForm::Key}, {u"数量"_s, schema::IndexForm::Plain}}));
        connection.close();
        ASSERT_TRUE(QFile::remove(path()));
        ASSERT_TRUE(connection.create(path(), Password, indexed));
        connection.close();
        ASSERT_TRUE(connection.open(path(), Password));
        Transaction transaction(connection);
        QRandomGenerator random(7);
        for (int i = 1; i <= Rows; ++i) {
            const QString maker = i % 3 == 0 ? u"甲"_s : i % 7 == 0 ? u"乙"_s : u"丙"_s;
            ASSERT_TRUE(connection.execute(
                u"INSERT INTO 品目 (名称, 数量, ﾒｰｶｰ) VALUES (?, ?, ?)"_s,
                {Value(u"品"_s + QString::number(random.bounded(Rows))), Value(i), Value(maker)}));
        }
        for (int i = 1; i <= Rows; i += 40)
            execute(u"INSERT INTO 控え (内容, 数) VALUES ('控', "_s + QString::number(i) + u')');
        ASSERT_TRUE(transaction.commit());
    }

    // The rows of the window that begins at a position (from 1), the first field of each.
    QStringList window(Recordset& rows, qint64 position, int count)
    {
        QStringList found;
        for (bool on = rows.setAbsolutePosition(position); on && found.size() < count;
             on = rows.moveNext())
            found += rows.value(0).toText();
        return found;
    }
};

TEST_F(FoundRows, AreTheStatementsInItsOrderWhereverOneBegins)
{
    const QString conditions[] = {
        u""_s,
        u" WHERE 数量 > 8900"_s,
        u" WHERE 数量 > 2500"_s,
        u" WHERE 数量 > 2500 AND ﾒｰｶｰ = '甲'"_s,
        u" WHERE ﾒｰｶｰ = '乙'"_s,
        u" WHERE (名称 & ﾒｰｶｰ) Like '%12%甲%'"_s,
        u" WHERE 名称 Like '%8%'"_s,
        u" WHERE 名称 Like '%8%' AND 数量 < 700"_s,
        u" WHERE 数量 > 99999"_s,
    };
    const QString orders[] = {u" ORDER BY 番号"_s, u" ORDER BY 名称, 番号"_s,
                              u" ORDER BY 名称 DESC, 番号"_s, u" ORDER BY ﾒｰｶｰ, 数量 DESC"_s};
    for (const QString& condition : conditions) {
        for (const QString& order : orders) {
            SCOPED_TRACE((condition + order).toStdString());
            // Rows that TOP counts are not found by their addresses.
            const QStringList all = rows(u"SELECT TOP 99999 番号 FROM 品目"_s + condition + order);
            const QString statement = u"SELECT 番号, 名称 FROM 品目"_s + condition + order;
            for (const qint64 begin : {qint64{1}, qint64{101}, qint64{5001}, all.size() - 60}) {
                Recordset list; // opened anew, so that it finds its way from nothing
                list.setPageSize(100);
                ASSERT_TRUE(list.open(statement, connection));
                const QStringList expected = begin > 0 ? all.mid(begin - 1, 100) : QStringList();
                EXPECT_EQ(window(list, std::max<qint64>(begin, 1), 100),
                          begin > 0 ? expected : all.mid(0, 100));
                EXPECT_EQ(list.recordCount(), all.size());
            }
            Recordset list;
            list.setPageSize(100);
            ASSERT_TRUE(list.open(statement, connection));
            QStringList turned;
            for (qint64 page = 1; list.setAbsolutePage(page); ++page)
                turned += window(list, list.absolutePosition(), 100);
            EXPECT_EQ(turned, all);
            QStringList forward;
            for (const QString& row : rows(statement))
                forward += row.section(u'|', 0, 0);
            EXPECT_EQ(forward, all);
        }
    }
}

// Also of statements whose rows are not those of one table.
TEST_F(FoundRows, OfAPageAreThoseReadForward)
{
    const QString joined = u"FROM 控え LEFT JOIN 品目 ON 控え.数 = 品目.数量 + 40 "_s;
    const QString statements[] = {
        u"SELECT 番号 & '/' & ﾒｰｶｰ AS 表示 FROM 品目 WHERE 数量 < 900 ORDER BY ﾒｰｶｰ ,数量 DESC"_s,
        u"SELECT 数量 FROM 品目 WHERE 名称 Like '品[1-3]%' AND 数量 < 900 ORDER BY 名称, 番号"_s,
        u"SELECT 品目.番号, 控え.* FROM 品目 INNER JOIN 控え ON 控え.数 = 品目.数量 "
        u"ORDER BY 品目.ﾒｰｶｰ DESC ,品目.番号"_s,
        u"SELECT 控え.数, 品目.番号 "_s + joined + u"ORDER BY 控え.数 DESC"_s,
        u"SELECT b.番号, a.番号 AS 次 FROM 品目 AS b LEFT JOIN 品目 AS a ON b.番号 + 1 = a.数量 "
        u"WHERE b.番号 > 8500 ORDER BY b.番号 DESC"_s,
        u"SELECT DISTINCT ﾒｰｶｰ FROM 品目 ORDER BY ﾒｰｶｰ"_s,
        u"SELECT TOP 25 番号, 名称 FROM 品目 ORDER BY 番号 DESC"_s,
    };
    for (const QString& statement : statements) {
        SCOPED_TRACE(statement.toStdString());
        QStringList forward;
        for (const QString& row : rows(statement))
            forward += row.section(u'|', 0, 0);
        ASSERT_FALSE(forward.isEmpty());
        for (const int pageSize : {7, 1000}) {
            Recordset list;
            list.setPageSize(pageSize);
            ASSERT_TRUE(list.open(statement, connection));
            QStringList turned;
            for (qint64 page = 1; page <= list.pageCount() && list.setAbsolutePage(page); ++page)
                turned += window(list, list.absolutePosition(), pageSize);
            EXPECT_EQ(turned, forward) << pageSize;
        }
    }
}

TEST_F(FoundRows, TellWhereARowStands)
{
    const QString list = u"SELECT 番号, 名称 FROM 品目 "_s;
    const QString statements[] = {
        list + u"ORDER BY 名称, 番号"_s,
        list + u"ORDER BY 名称 DESC, 番号"_s,
        list + u"ORDER BY ﾒｰｶｰ, 数量"_s,
        list + u"ORDER BY ﾒｰｶｰ DESC, 数量 DESC"_s,
        list + u"ORDER BY ﾒｰｶｰ"_s,
        list + u"WHERE ﾒｰｶｰ = '乙' ORDER BY 名称 DESC, 番号"_s,
        list + u"WHERE 数量 > 2500 ORDER BY 名称, 番号"_s,
        list + u"WHERE 数量 > 8900 ORDER BY 名称, 番号"_s,
        list + u"WHERE 名称 Like '%8%'"_s,
        list + u"WHERE ﾒｰｶｰ = '丙' ORDER BY ﾒｰｶｰ, 数量"_s,
        u"SELECT 品目.番号, 控え.内容 FROM 品目 INNER JOIN 控え ON 控え.数 = 品目.数量 ORDER BY 品目.名称, 品目.番号"_s,
        list + u"WHERE 数量 < 40 UNION "_s + list + u"WHERE 数量 > 8000 ORDER BY 名称"_s,
    };
    // Null stands before all values, and behind them when descending.
    execute(u"UPDATE 品目 SET ﾒｰｶｰ = Null, 名称 = Null WHERE 数量 < 150 OR 数量 > 8950"_s);
    for (const QString& statement : statements) {
        SCOPED_TRACE(statement.toStdString());
        QStringList all;
        for (const QString& row : rows(statement))
            all += row.section(u'|', 0, 0);
        ASSERT_FALSE(all.isEmpty());
        for (const qint64 place :
             {qint64{1}, all.size() / 9, all.size() / 2 + 1, all.size() - 10, qint64{all.size()}}) {
            Recordset found;
            found.setPageSize(100);
            ASSERT_TRUE(found.open(statement, connection));
            const Value key(all.at(place - 1).toLongLong());
            EXPECT_EQ(found.positionOf(u"番号", key), place);
            EXPECT_TRUE(found.setAbsolutePosition(place));
            EXPECT_EQ(found.value(0), key);
            const qint64 page = (place - 1) / 100;
            ASSERT_TRUE(found.setAbsolutePage(page + 1));
            EXPECT_EQ(window(found, page * 100 + 1, 100), all.mid(page * 100, 100));
            EXPECT_EQ(found.positionOf(u"番号", Value(987654)), 0);
        }
    }
    Recordset found;
    ASSERT_TRUE(found.open(list, connection));
    EXPECT_EQ(found.positionOf(u"名称", Value(1)), -1);
    EXPECT_EQ(takeErrors(), QList{ErrorKind::Name});
}

TEST_F(FoundRows, StayWhatTheyWereUntilTheListIsOpenedAgain)
{
    Recordset list;
    list.setPageSize(50);
    ASSERT_TRUE(
        list.open(u"SELECT 番号 FROM 品目 WHERE 名称 Like '%8%' ORDER BY 番号"_s, connection));
    const qint64 count = list.recordCount();
    const QStringList before = window(list, 1, 50);
    OtherCopy other(data());
    execute(other.connection, u"DELETE FROM 品目 WHERE 番号 = "_s + before.at(3));
    execute(other.connection, u"UPDATE 品目 SET 名称 = '別' WHERE 番号 = "_s + before.at(5));
    list.setAbsolutePage(2);

    QStringList without = before;
    without.removeAt(3); // passed over; what no longer fits is still there
    EXPECT_EQ(window(list, 1, 49), without);
    EXPECT_EQ(list.recordCount(), count);
    ASSERT_TRUE(list.setAbsolutePosition(4));
    EXPECT_EQ(list.absolutePosition(), 5);
}

TEST_F(FoundRows, AReaderKeepsNobodyFromWriting)
{
    const QString statements[] = {
        u"品目"_s,
        u"SELECT 番号, 名称 FROM 品目 ORDER BY 名称"_s,
        u"SELECT 品目.番号, 控え.内容 FROM 品目 INNER JOIN 控え ON 控え.数 = 品目.数量"_s,
        u"SELECT 番号 FROM 品目 WHERE ﾒｰｶｰ = '甲'"_s,
        u"SELECT DISTINCT 番号, ﾒｰｶｰ FROM 品目"_s,
    };
    OtherCopy other(data());
    shortenWaiting(other.connection);
    for (const QString& statement : statements) {
        SCOPED_TRACE(statement.toStdString());
        const QStringList before = rows(statement);
        ASSERT_GT(before.size(), 100);
        Recordset reader;
        ASSERT_TRUE(reader.open(statement, connection));
        QStringList seen;
        for (; !reader.eof(); reader.moveNext()) {
            seen += reader.value(u"番号").toText();
            if (seen.size() % 100 == 1) {
                execute(other.connection, u"INSERT INTO 品目 (名称, 数量) VALUES ('追加', 41)"_s);
                execute(u"INSERT INTO 品目 (名称, 数量, ﾒｰｶｰ) VALUES ('自分', 41, '甲')"_s);
            }
        }
        EXPECT_EQ(seen.size(), before.size());
        EXPECT_EQ(QSet<QString>(seen.begin(), seen.end()).size(), seen.size());
    }
}

} // namespace
