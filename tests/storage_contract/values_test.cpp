#include "storage/base/quoted.h"
#include "storage_contract/scratch_file.h"

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

// What statements write, and the values that are given beside them.
class Values : public ScratchFile {
protected:
    void expectRefused(const QString& statement, const QString& message,
                       const QList<Value>& values = {})
    {
        EXPECT_FALSE(connection.execute(statement, values)) << statement.toStdString();
        EXPECT_EQ(connection.lastError().message, message) << statement.toStdString();
        EXPECT_EQ(connection.lastError().statement, statement);
        EXPECT_EQ(takeErrors(), QList{ErrorKind::Type}) << statement.toStdString();
    }
};

// Written out, given for a "?", read from a row, and as a row's new value.
TEST_F(Values, AreBroughtToTheColumnsTypeHoweverTheyAreWritten)
{
    const struct {
        QString column;
        Value given;
        QString kept; // empty when it is refused
    } cases[] = {
        {u"数量"_s, 7.6, u"8"_s},
        {u"数量"_s, 2.5, u"2"_s},
        {u"数量"_s, 3.5, u"4"_s},
        {u"数量"_s, -3.5, u"-4"_s},
        {u"数量"_s, u" ４2 "_s, u"42"_s},
        {u"数量"_s, u"1e3"_s, u"1000"_s},
        {u"数量"_s, u"2147483647.4"_s, u"2147483647"_s},
        {u"数量"_s, 2147483647.5, {}},
        {u"数量"_s, u"12個"_s, {}},
        {u"数量"_s, QString(), {}},
        {u"単価"_s, 3, u"3"_s},
        {u"単価"_s, u"0.25"_s, u"0.25"_s},
        {u"単価"_s, u"inf"_s, {}},
        {u"名称"_s, 1.0, u"1"_s},
        {u"名称"_s, -12, u"-12"_s},
        {u"ﾒｰｶｰ"_s, u"あい𠮷えお"_s, u"あい𠮷えお"_s},
        {u"ﾒｰｶｰ"_s, u"あい𠮷えおか"_s, {}},
        {u"ﾒｰｶｰ"_s, 123456, {}},
        {u"更新日時"_s, u"2026/2/9 1:02"_s, u"2026/02/09 01:02:00.000"_s},
        {u"更新日時"_s, u"2026/02/30"_s, {}},
    };
    for (const auto& [column, given, kept] : cases) {
        execute(u"DELETE FROM 品目"_s);
        execute(u"DELETE FROM 控え"_s);
        const QString text = given.toText();
        const bool isText = given.type() == ValueType::Text;
        const QString literal = isText ? u'\'' + quoted(text) + u'\'' : text;
        const QString computed = isText ? u"内容"_s : u"数 + "_s + text;
        execute(u"INSERT INTO 控え (数, 内容) VALUES (0, '"_s + quoted(text) + u"')"_s);
        execute(u"INSERT INTO 品目 (名称) VALUES (Null)"_s);
        const QString insert = u"INSERT INTO 品目 ("_s + column + u") "_s;
        const struct {
            QString statement;
            QList<Value> values;
        } writes[] = {
            {insert + u"VALUES ("_s + literal + u')', {}},
            {insert + u"VALUES (?)"_s, {given}},
            {insert + u"SELECT "_s + computed + u" AS x FROM 控え"_s, {}},
            {u"UPDATE 品目 SET "_s + column + u" = ? WHERE "_s + column + u" Is Null"_s, {given}},
        };
        const QString misfit = u"列「"_s + column + u"」に入らない値「"_s + text + u"」です"_s;
        for (const auto& [statement, values] : writes) {
            const bool isRead = statement.contains(u"SELECT");
            if (kept.isEmpty())
                expectRefused(statement, misfit + (isRead ? u"（行 1）。"_s : u"。"_s), values);
            else
                EXPECT_TRUE(connection.execute(statement, values)) << statement.toStdString();
        }
        Recordset row;
        ASSERT_TRUE(row.open(u"品目"_s, connection, CursorType::Dynamic, LockType::Optimistic));
        ASSERT_TRUE(row.addNew());
        EXPECT_EQ(row.setValue(column, given), !kept.isEmpty()) << text.toStdString();
        EXPECT_TRUE(kept.isEmpty() ? takeErrors() == QList{ErrorKind::Type} : row.update());
        row.close();
        EXPECT_EQ(rows(u"SELECT "_s + column + u" FROM 品目"_s),
                  kept.isEmpty() ? QStringList{u"-"_s} : QStringList(5, kept))
            << column.toStdString() << ' ' << text.toStdString();
    }
}

TEST_F(Values, OfRowsThatDoNotFitAreNamedWithTheirRow)
{
    for (const QString& text : {u"2"_s, u"10"_s, u"三"_s, u"4"_s})
        execute(u"INSERT INTO 品目 (名称) VALUES ('"_s + text + u"')"_s);
    const struct {
        QString statement;
        QString message;
    } cases[] = {
        {u"UPDATE 品目 SET 数量 = 名称"_s, u"列「数量」に入らない値「三」です（番号 3）。"_s},
        {u"UPDATE 品目 SET 数量 = 名称 & '年' WHERE 番号 > 3"_s,
         u"列「数量」に入らない値「4年」です（番号 4）。"_s},
        {u"UPDATE 控え SET 数 = 内容"_s, u"列「数」に入らない値「最初」です（行 1）。"_s},
        {u"UPDATE 品目 SET 数量 = 番号 * 1000000000"_s,
         u"列「数量」に入らない値「3000000000」です（番号 3）。"_s},
        {u"INSERT INTO 控え (数) SELECT 名称 FROM 品目 ORDER BY 番号 DESC"_s,
         u"列「数」に入らない値「三」です（行 2）。"_s},
        {u"INSERT INTO 控え (数) SELECT DISTINCT 名称 FROM 品目 WHERE 番号 > 1 UNION ALL "
         u"SELECT max(名称) & '' FROM 品目"_s,
         u"列「数」に入らない値「三」です（行 2）。"_s},
    };
    for (const auto& each : cases)
        expectRefused(each.statement, each.message);
    EXPECT_EQ(rows(u"SELECT 数 FROM 控え"_s), QStringList{u"0"_s});
    EXPECT_EQ(rows(u"SELECT count(数量) FROM 品目"_s), QStringList{u"0"_s});

    // Rows are told apart, limited and ordered before their values become those of the column.
    execute(u"UPDATE 品目 SET 名称 = '2.4' WHERE 番号 = 3"_s);
    execute(u"DELETE FROM 控え"_s);
    execute(u"INSERT INTO 控え (数) SELECT DISTINCT TOP 3 名称 FROM 品目 ORDER BY 名称"_s);
    EXPECT_EQ(rows(u"SELECT 数 FROM 控え"_s), (QStringList{u"10"_s, u"2"_s, u"2"_s}));
}

TEST_F(Values, AreGivenForTheirPlaces)
{
    for (const QString& text : {u"O'Neil"_s, u"ｵﾆｰﾙ"_s, u"100%"_s})
        EXPECT_TRUE(connection.execute(u"INSERT INTO 品目 (名称, 数量) VALUES (?, ?)"_s,
                                       {text, text.size()}));
    execute(u"UPDATE 品目 SET 更新日時 = #2026/11/22 10:00:00# WHERE 番号 = 2"_s);
    const Value moment = Value::fromDateTimeText(u"2026/11/22 10:00:00.000"_s);
    const struct {
        QString condition;
        QList<Value> values;
        QString expected;
    } cases[] = {
        {u"名称 = ?"_s, {u"o'neil"_s}, u"1"_s},
        {u"名称 = ? OR 数量 = ?"_s, {u"オニール"_s, 6}, u"1 2"_s},
        {u"名称 In ('x', ?, ?)"_s, {u"オニール"_s, u"１００％"_s}, u"2 3"_s},
        {u"名称 > ?"_s, {u"ｱ"_s}, u"2"_s},
        {u"名称 Between ? And ?"_s, {u"カ"_s, u"あ"_s}, u"2"_s},
        {u"数量 Between ? And ?"_s, {4.5, 3}, u"2 3"_s},
        {u"数量 + ? = 5 AND -? < 0"_s, {1, 2}, u"2 3"_s},
        {u"名称 Like ?"_s, {u"%'%"_s}, u"1"_s},
        {u"名称 Not Like ?"_s, {u"[o-ｵ]%"_s}, u"3"_s},
        {u"名称 & 数量 Like ?"_s, {u"%[%]4"_s}, u"3"_s},
        {u"名称 Like ?"_s, {Value()}, u""_s},
        {u"名称 & ? = 'O''Neil!'"_s, {u"!"_s}, u"1"_s},
        {u"更新日時 = ?"_s, {moment}, u"2"_s},
        {u"更新日時 = ? OR 数量 = ?"_s, {Value(), 4}, u"2 3"_s},
        {u"名称 <> '?' AND 数量 = ?"_s, {6}, u"1"_s},
    };
    for (int run = 0; run < 2; ++run) { // the second time from what is kept of the first
        for (const auto& each : cases) {
            Recordset found;
            found.setPageSize(1);
            const QString statement =
                u"SELECT 番号 FROM 品目 WHERE "_s + each.condition + u" ORDER BY 番号 ,名称"_s;
            ASSERT_TRUE(found.open(statement, each.values, connection)) << statement.toStdString();
            QStringList numbers;
            for (; !found.eof(); found.moveNext())
                numbers += found.text(u"番号");
            EXPECT_EQ(numbers.join(u' '), each.expected) << statement.toStdString();
            EXPECT_EQ(found.recordCount(), numbers.size()) << statement.toStdString();
        }
    }
    // The same words with a value of another kind are another statement.
    const QString selected = u"SELECT ? AS x FROM 控え"_s;
    for (const Value& value : {Value(5), Value(u"5"_s), Value(0.5), moment, Value()}) {
        Recordset found;
        ASSERT_TRUE(found.open(selected, {value}, connection));
        EXPECT_EQ(found.value(u"x"), value);
    }
}

TEST_F(Values, ThatAreTooFewOrOfAnotherKindAreRefused)
{
    const struct {
        QString condition;
        QList<Value> values;
        ErrorKind kind;
        QString message;
    } cases[] = {
        {u"数量 = ?"_s, {}, ErrorKind::State, u"文の「?」は 1 個で、値は 0 個です。"_s},
        {u"数量 = ?"_s, {1, 2}, ErrorKind::State, u"文の「?」は 1 個で、値は 2 個です。"_s},
        {u"数量 = 1"_s, {1}, ErrorKind::State, u"文の「?」は 0 個で、値は 1 個です。"_s},
        {u"数量 = ?"_s, {u"1"_s}, ErrorKind::Type, u"比べる値の型が合いません。"_s},
        {u"名称 = ?"_s, {1}, ErrorKind::Type, u"比べる値の型が合いません。"_s},
        {u"数量 + ? = 1"_s, {u"1"_s}, ErrorKind::Type, u"数値が必要です。"_s},
        {u"名称 Like ?"_s,
         {1},
         ErrorKind::Syntax,
         u"Like の右には文字列か「?」の文字列が必要です。"_s},
        {u"名称 Like ?"_s,
         {u"%[ｱ"_s},
         ErrorKind::Syntax,
         u"Like の文字パターンの [ が閉じられていません。"_s},
        {u"名称 Like '%' & ? & '%'"_s,
         {u"ｱ"_s},
         ErrorKind::Syntax,
         u"Like の右には文字列か「?」の文字列が必要です。"_s},
    };
    for (const auto& each : cases) {
        Recordset found;
        EXPECT_FALSE(
            found.open(u"SELECT * FROM 品目 WHERE "_s + each.condition, each.values, connection));
        EXPECT_EQ(connection.lastError().message, each.message) << each.condition.toStdString();
        EXPECT_EQ(takeErrors(), QList{each.kind}) << each.condition.toStdString();
    }
}

} // namespace
