#include "storage_contract/scratch_file.h"

#include "storage/transaction.h"

#include <limits>

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

class Changes : public ScratchFile {
protected:
    void openForChange(Recordset& rows, const QString& source)
    {
        ASSERT_TRUE(rows.open(source, connection, CursorType::Dynamic, LockType::Optimistic))
            << connection.lastError().message.toStdString();
    }

    static Value moment(const char* text)
    {
        return Value::fromDateTimeText(QString::fromUtf8(text));
    }
};

TEST_F(Changes, AnAppendedRowShowsItsNumberAndWhatWasWritten)
{
    Recordset rows;
    openForChange(rows, u"品目"_s);
    ASSERT_TRUE(rows.addNew());
    EXPECT_TRUE(rows.value(u"番号").isNull());
    ASSERT_TRUE(rows.setValue(u"メーカー", u"甲"_s));
    ASSERT_TRUE(rows.setValue(u"数量", u" 12 "_s));
    EXPECT_EQ(rows.value(u"数量"), Value(12));
    ASSERT_TRUE(rows.update());
    EXPECT_EQ(rows.value(u"番号"), Value(1));

    ASSERT_TRUE(rows.setValue(u"数量", 13));
    ASSERT_TRUE(rows.update());
    ASSERT_TRUE(rows.addNew());
    EXPECT_TRUE(rows.value(u"数量").isNull());
    ASSERT_TRUE(rows.update());
    EXPECT_EQ(rows.value(u"番号"), Value(2));
    ASSERT_TRUE(rows.addNew());
    ASSERT_TRUE(rows.setValue(u"番号", 40));
    ASSERT_TRUE(rows.update());
    EXPECT_FALSE(rows.moveNext());
    EXPECT_EQ(this->rows(u"SELECT 番号, 数量, ﾒｰｶｰ FROM 品目 ORDER BY 番号"_s),
              (QStringList{u"1|13|甲"_s, u"2|-|-"_s, u"40|-|-"_s}));
}

TEST_F(Changes, NumbersNeverComeBack)
{
    fill(3);
    execute(u"DELETE FROM 品目"_s);
    fill(1);
    connection.close();
    ASSERT_TRUE(connection.open(data(), Password));
    fill(1);
    EXPECT_EQ(rows(u"SELECT 番号 FROM 品目 ORDER BY 番号"_s), (QStringList{u"4"_s, u"5"_s}));
}

TEST_F(Changes, WhatWasNotUpdatedIsDropped)
{
    fill(3);
    Recordset rows;
    openForChange(rows, u"SELECT * FROM 品目 ORDER BY 番号"_s);
    ASSERT_TRUE(rows.setValue(u"名称", u"別"_s));
    EXPECT_EQ(rows.text(u"名称"), u"別"_s);
    rows.cancelUpdate();
    EXPECT_EQ(rows.text(u"名称"), u"品1"_s);
    ASSERT_TRUE(rows.setValue(u"名称", u"別"_s));
    ASSERT_TRUE(rows.moveNext());
    EXPECT_EQ(rows.text(u"名称"), u"品2"_s);
    ASSERT_TRUE(rows.addNew());
    rows.cancelUpdate();
    EXPECT_EQ(rows.text(u"名称"), u"品2"_s);
    ASSERT_TRUE(rows.addNew());
    EXPECT_FALSE(rows.moveNext());
    rows.close();
    EXPECT_EQ(this->rows(u"SELECT 名称 FROM 品目"_s).size(), 3);
}

// What a statement could write as well is told by Values.
TEST_F(Changes, ValuesFitTheirColumnsOrAreRefused)
{
    const Value nothing;
    struct Case {
        QString column;
        Value given;
        std::optional<Value> kept;
    };
    const std::vector<Case> cases = {
        {u"数量"_s, Value(2147483647), Value(2147483647)},
        {u"数量"_s, Value(qint64{-2147483648}), Value(qint64{-2147483648})},
        {u"数量"_s, Value(qint64{2147483648}), {}},
        {u"数量"_s, Value(qint64{-2147483649}), {}},
        {u"数量"_s, Value(std::numeric_limits<double>::quiet_NaN()), {}},
        {u"数量"_s, moment("2004/02/29 00:00:00.000"), {}},
        {u"数量"_s, nothing, nothing},
        {u"単価"_s, Value(u"0.25"_s), Value(0.25)},
        {u"単価"_s, Value(3), Value(3.0)},
        {u"名称"_s, Value(1.0), Value(u"1"_s)},
        {u"名称"_s, Value(QString()), Value(QString())},
        {u"更新日時"_s, Value(u"2004/2/29 1:02"_s), moment("2004/02/29 01:02:00.000")},
        {u"更新日時"_s, Value(5), {}},
        {u"番号"_s, Value(7), {}},
    };
    fill(1);
    for (const auto& [column, given, kept] : cases) {
        SCOPED_TRACE(testing::Message()
                     << column.toStdString() << " = " << given.toText().toStdString());
        execute(u"UPDATE 品目 SET 数量 = 1, 単価 = 1, 名称 = '元', ﾒｰｶｰ = '元', 更新日時 = Null"_s);
        Recordset rows;
        openForChange(rows, u"品目"_s);
        const Value before = rows.value(column);
        EXPECT_EQ(rows.setValue(column, given), kept.has_value());
        EXPECT_EQ(takeErrors(), kept ? QList<ErrorKind>() : QList{ErrorKind::Type});
        EXPECT_TRUE(rows.update());
        ASSERT_TRUE(rows.moveFirst());
        EXPECT_EQ(rows.value(column), kept.value_or(before));
    }
}

TEST_F(Changes, ARowChangedOrDeletedByAnotherCopyIsGone)
{
    execute(u"INSERT INTO 品目 (名称, 更新日時) VALUES ('元', #2004/02/29 00:00:00#)"_s);
    execute(u"INSERT INTO 品目 (名称) VALUES ('印なし')"_s);
    OtherCopy other(data());
    Recordset row;
    openForChange(row, u"SELECT * FROM 品目 WHERE 番号 = 1"_s);
    execute(other.connection, u"UPDATE 品目 SET 更新日時 = #2004/02/29 00:00:01# WHERE 番号 = 1"_s);
    ASSERT_TRUE(row.setValue(u"名称", u"後"_s));
    EXPECT_FALSE(row.update());
    EXPECT_FALSE(row.deleteRow());
    EXPECT_EQ(takeErrors(), (QList{ErrorKind::Gone, ErrorKind::Gone}));
    EXPECT_EQ(row.text(u"名称"), u"後"_s); // still to be written
    EXPECT_EQ(rows(u"SELECT 名称 FROM 品目"_s), (QStringList{u"元"_s, u"印なし"_s}));

    openForChange(row, u"SELECT * FROM 品目 WHERE 番号 = 2"_s);
    execute(other.connection, u"DELETE FROM 品目 WHERE 番号 = 2"_s);
    ASSERT_TRUE(row.setValue(u"名称", u"後"_s));
    EXPECT_FALSE(row.update());
    EXPECT_EQ(takeErrors(), QList{ErrorKind::Gone});
}

TEST_F(Changes, ANewStampIsAlwaysLaterThanTheOldOne)
{
    struct Case {
        const char* old;
        const char* written;
        const char* kept;
    };
    const std::vector<Case> cases = {
        {"2004/02/29 10:00:00.000", "2004/02/29 10:00:00.001", "2004/02/29 10:00:00.001"},
        {"2004/02/29 10:00:00.000", "2004/02/29 10:00:00.000", "2004/02/29 10:00:00.001"},
        {"2004/12/31 23:59:59.999", "2004/12/31 23:59:59.999", "2005/01/01 00:00:00.000"},
        {"2004/03/01 00:00:00.500", "2003/01/01 00:00:00.000", "2004/03/01 00:00:00.501"},
    };
    fill(1);
    for (const auto& [old, written, kept] : cases) {
        execute(u"UPDATE 品目 SET 更新日時 = Null"_s);
        Recordset row;
        openForChange(row, u"SELECT * FROM 品目"_s);
        for (const char* stamp : {old, written}) {
            ASSERT_TRUE(row.setValue(u"更新日時", moment(stamp)));
            ASSERT_TRUE(row.update());
        }
        EXPECT_EQ(row.value(u"更新日時"), moment(kept));
        EXPECT_EQ(rows(u"SELECT 更新日時 FROM 品目"_s), QStringList{QString::fromUtf8(kept)});
    }
}

TEST_F(Changes, AWalkThatChangesRowsSeesEachOnceAsItWas)
{
    fill(80);
    Recordset rows;
    openForChange(rows, u"SELECT * FROM 品目 WHERE 数量 > 0 ORDER BY 数量"_s);
    int seen = 0;
    for (; !rows.eof(); rows.moveNext()) {
        EXPECT_EQ(rows.value(u"数量").toInteger(), ++seen);
        ASSERT_TRUE(rows.setValue(u"数量", seen + 1000)); // moves the row behind all others
        ASSERT_TRUE(rows.update());
        EXPECT_EQ(rows.value(u"数量").toInteger(), seen + 1000);
        execute(u"INSERT INTO 品目 (数量) VALUES (5000)"_s);
    }
    EXPECT_EQ(seen, 80);
    EXPECT_EQ(this->rows(u"SELECT count(*) AS 数 FROM 品目 WHERE 数量 > 1000"_s),
              QStringList{u"160"_s});
}

TEST_F(Changes, ARowOfALaterPageIsTheOneThatIsWritten)
{
    fill(60);
    Recordset rows;
    rows.setPageSize(10);
    openForChange(rows, u"SELECT * FROM 品目 WHERE 数量 > 0 ORDER BY 数量 DESC"_s);
    ASSERT_TRUE(rows.setAbsolutePage(3));
    EXPECT_EQ(rows.text(u"名称"), u"品40"_s);
    ASSERT_TRUE(rows.setValue(u"名称", u"変更"_s) && rows.update());
    rows.close();
    EXPECT_EQ(this->rows(u"SELECT 数量 FROM 品目 WHERE 名称 = '変更'"_s), QStringList{u"40"_s});
}

TEST_F(Changes, RowsAreDeletedOnTheWalk)
{
    for (const int pageSize : {0, 1, 4}) {
        SCOPED_TRACE(pageSize);
        Transaction transaction(connection);
        execute(u"DELETE FROM 品目"_s);
        fill(90);
        Recordset rows;
        rows.setPageSize(pageSize);
        openForChange(rows, u"SELECT * FROM 品目 ORDER BY 数量"_s);
        for (int number = 1; !rows.eof(); ++number, rows.moveNext()) {
            EXPECT_EQ(rows.value(u"数量").toInteger(), number);
            if (number % 3 != 0) {
                ASSERT_TRUE(rows.deleteRow());
                EXPECT_TRUE(rows.value(0).isNull());
            }
        }
        EXPECT_FALSE(rows.deleteRow());
        EXPECT_EQ(takeErrors(), QList{ErrorKind::State});
        EXPECT_EQ(this->rows(u"SELECT 数量 FROM 品目"_s).size(), 30);
        EXPECT_TRUE(transaction.commit());
    }
}

TEST_F(Changes, RowsWithoutKeyAndStampAreAddressedToo)
{
    execute(u"INSERT INTO 控え (内容, 数) VALUES ('最初', 0)"_s); // a twin of the first row
    Recordset rows;
    openForChange(rows, u"控え"_s);
    ASSERT_TRUE(rows.setValue(u"数", 7));
    ASSERT_TRUE(rows.update());
    ASSERT_TRUE(rows.moveNext());
    ASSERT_TRUE(rows.deleteRow());
    EXPECT_EQ(this->rows(u"SELECT * FROM 控え"_s), QStringList{u"最初|7"_s});
}

TEST_F(Changes, WhatCannotBeChangedIsRefused)
{
    fill(1);
    for (const QString& source :
         {u"SELECT count(*) AS 数 FROM 品目"_s, u"SELECT 品目.* FROM 品目, 控え"_s,
          u"SELECT 名称 FROM 品目 UNION SELECT 内容 FROM 控え"_s}) {
        Recordset rows;
        openForChange(rows, source);
        EXPECT_FALSE(rows.addNew() || rows.setValue(u"名称", u"x"_s) || rows.update()
                     || rows.deleteRow());
    }
    Recordset readOnly;
    ASSERT_TRUE(readOnly.open(u"品目"_s, connection));
    EXPECT_FALSE(readOnly.setValue(u"名称", u"x"_s));
    EXPECT_EQ(takeErrors(), QList<ErrorKind>(13, ErrorKind::State));

    Recordset rows;
    openForChange(rows, u"SELECT 名称 & '様' AS 宛名, 数量 FROM 品目"_s);
    EXPECT_FALSE(rows.setValue(u"宛名", u"x"_s));
    EXPECT_FALSE(rows.setValue(u"単価", 1));
    EXPECT_EQ(takeErrors(), (QList{ErrorKind::Name, ErrorKind::Name}));
    ASSERT_TRUE(rows.setValue(u"数量", 9));
    ASSERT_TRUE(rows.update());
    EXPECT_EQ(rows.text(u"宛名") + rows.text(u"数量"), u"品1様9"_s);
}

} // namespace
