#include "storage_contract/scratch_file.h"

#include "storage/engine/engine.h"

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

class RecordsetTest : public ScratchFile {
protected:
    // The numbers of the rows from the current one to the end.
    static QList<qint64> rest(Recordset& rows)
    {
        QList<qint64> numbers;
        for (; !rows.eof(); rows.moveNext())
            numbers += rows.value(u"数量").toInteger();
        return numbers;
    }
};

const QString InOrder = u"SELECT * FROM 品目 ORDER BY 数量"_s;

TEST_F(RecordsetTest, WalksResultsOfAnyLength)
{
    fill(200);
    for (const int count : {0, 1, 63, 64, 65, 66, 199, 200}) {
        SCOPED_TRACE(count);
        Recordset rows;
        ASSERT_TRUE(
            rows.open(u"SELECT * FROM 品目 WHERE 数量 <= "_s + QString::number(count), connection));
        EXPECT_EQ(rows.eof(), count == 0);
        EXPECT_EQ(rows.absolutePosition(), count == 0 ? 0 : 1);
        EXPECT_EQ(rest(rows).size(), count);
        EXPECT_FALSE(rows.moveNext());
        EXPECT_TRUE(rows.eof());
        EXPECT_EQ(rows.recordCount(), count);
        EXPECT_EQ(rows.moveFirst(), count > 0);
        EXPECT_EQ(rest(rows).size(), count);
        EXPECT_EQ(rows.setAbsolutePosition(count), count > 0);
        EXPECT_EQ(rows.absolutePosition(), count);
        EXPECT_FALSE(rows.setAbsolutePosition(count + 1));
        EXPECT_TRUE(rows.eof());
    }
    EXPECT_EQ(takeErrors(), QList{ErrorKind::State}); // row 0 of the empty result
}

TEST_F(RecordsetTest, PagesCostTheirRowsAndNothingIsMissedBetweenThem)
{
    struct Case {
        int rows;
        int pageSize;
        QList<int> pages; // rows on each
    };
    const std::vector<Case> cases = {
        {0, 10, {}},       {1, 10, {1}},        {9, 10, {9}},          {10, 10, {10}},
        {11, 10, {10, 1}}, {20, 10, {10, 10}},  {21, 10, {10, 10, 1}}, {3, 1, {1, 1, 1}},
        {70, 64, {64, 6}}, {130, 65, {65, 65}},
    };
    fill(130);
    for (const auto& [count, pageSize, pages] : cases) {
        SCOPED_TRACE(testing::Message() << count << " rows in pages of " << pageSize);
        Recordset rows;
        rows.setPageSize(pageSize);
        ASSERT_TRUE(rows.open(u"SELECT * FROM 品目 WHERE 数量 <= "_s + QString::number(count)
                                  + u" ORDER BY 数量"_s,
                              connection));
        EXPECT_EQ(rows.pageCount(), pages.size());
        EXPECT_EQ(rows.absolutePage(), pages.isEmpty() ? 0 : 1);
        for (qsizetype page = pages.size(); page >= 1; --page) {
            ASSERT_TRUE(rows.setAbsolutePage(page));
            EXPECT_EQ(rows.absolutePage(), page);
            for (int i = 0; i < pages[page - 1]; ++i, rows.moveNext())
                EXPECT_EQ(rows.value(u"数量").toInteger(), (page - 1) * pageSize + i + 1);
            EXPECT_EQ(rows.eof(), page == pages.size());
        }
        EXPECT_FALSE(rows.setAbsolutePage(pages.size() + 1));
        EXPECT_TRUE(rows.eof());
        if (!pages.isEmpty()) {
            ASSERT_TRUE(rows.moveFirst());
            EXPECT_EQ(rest(rows).size(), count);
        }
    }
}

TEST_F(RecordsetTest, AStretchOfALongResultIsReadByPositionAndCacheSize)
{
    fill(500);
    Recordset rows;
    rows.setPageSize(100);
    ASSERT_TRUE(rows.open(InOrder, connection));
    for (const int first : {401, 1, 250, 499, 500}) {
        rows.setCacheSize(7);
        ASSERT_TRUE(rows.setAbsolutePosition(first));
        EXPECT_EQ(rows.value(u"数量").toInteger(), first);
        EXPECT_EQ(rows.absolutePage(), (first - 1) / 100 + 1);
        EXPECT_EQ(rest(rows).size(), 501 - first);
    }
    EXPECT_FALSE(rows.setAbsolutePosition(501));
    EXPECT_TRUE(takeErrors().isEmpty());
    EXPECT_FALSE(rows.setAbsolutePosition(0));
    EXPECT_FALSE(rows.setAbsolutePage(0));
    EXPECT_EQ(takeErrors(), (QList{ErrorKind::State, ErrorKind::State}));
}

TEST_F(RecordsetTest, AnyTextSurvives)
{
    const QStringList texts = {
        QString(),
        u" blank ends "_s,
        u"'quotes' \"double\" `back` [brackets] % _ # ;--"_s,
        u"行\r\n行\n\t"_s,
        u"前\0後"_s,
        QString(QChar(u'\0')),
        u"𠮷野家 😀👨‍👩‍👧 ｶﾞ ガ ＡＢＣ"_s,
        QString(10000, u'長'),
    };
    Recordset rows;
    ASSERT_TRUE(rows.open(u"品目"_s, connection, CursorType::Dynamic, LockType::Optimistic));
    for (const QString& text : texts) {
        ASSERT_TRUE(rows.addNew());
        ASSERT_TRUE(rows.setValue(u"名称", text));
        ASSERT_TRUE(rows.update());
        EXPECT_EQ(rows.value(u"名称"), Value(text));
    }
    QStringList read;
    ASSERT_TRUE(rows.open(u"SELECT 名称 FROM 品目 ORDER BY 番号"_s, connection));
    for (; !rows.eof(); rows.moveNext())
        read += rows.text(u"名称");
    EXPECT_EQ(read, texts);
}

TEST_F(RecordsetTest, FieldsAreFoundAsStatementsFindColumns)
{
    execute(u"INSERT INTO 品目 (名称, ﾒｰｶｰ) VALUES ('椅子', '甲社')"_s);
    execute(u"UPDATE 控え SET 内容 = '椅子'"_s);
    Recordset rows;
    ASSERT_TRUE(rows.open(u"SELECT 品目.*, 控え.内容, 控え.内容 AS 写し FROM 品目 "
                          "INNER JOIN 控え ON 品目.名称 = 控え.内容"_s,
                          connection));
    const std::vector<std::pair<QString, QString>> found = {
        {u"ﾒｰｶｰ"_s, u"甲社"_s},      {u"メーカー"_s, u"甲社"_s}, {u"品目.メーカー"_s, u"甲社"_s},
        {u"控え.内容"_s, u"椅子"_s}, {u"写し"_s, u"椅子"_s},
    };
    for (const auto& [name, text] : found)
        EXPECT_EQ(rows.text(name), text) << name.toStdString();
    for (const QString& name : {u"めーかー"_s, u"控え.ﾒｰｶｰ"_s, u"."_s, QString()})
        EXPECT_EQ(rows.fieldIndex(name), -1) << name.toStdString();
    EXPECT_EQ(rows.fieldName(4), u"ﾒｰｶｰ"_s);

    EXPECT_TRUE(rows.value(u"無い").isNull());
    rows.moveNext();
    EXPECT_TRUE(rows.value(u"写し").isNull());
    EXPECT_TRUE(rows.value(0).isNull());
    EXPECT_EQ(takeErrors(), (QList{ErrorKind::Name, ErrorKind::State}));
}

TEST_F(RecordsetTest, AShortResultLeftOpenLetsOthersWrite)
{
    fill(64);
    Recordset standing;
    ASSERT_TRUE(standing.open(u"SELECT * FROM 品目 WHERE 数量 <= 63"_s, connection));
    OtherCopy other(data());
    EXPECT_TRUE(other.connection.execute(u"DELETE FROM 品目"_s));
    EXPECT_EQ(rest(standing).size(), 63);

    Recordset paged;
    paged.setPageSize(10);
    fill(200);
    ASSERT_TRUE(paged.open(InOrder, connection));
    EXPECT_TRUE(other.connection.execute(u"DELETE FROM 品目"_s));
    EXPECT_EQ(rest(paged).size(), 10);
}

TEST_F(RecordsetTest, WhatCannotBeOpenedStaysClosed)
{
    Recordset rows;
    const std::vector<std::pair<QString, ErrorKind>> refused = {
        {u"SELECT * FROM 無い"_s, ErrorKind::Name},
        {u"SELECT 無い FROM 品目"_s, ErrorKind::Name},
        {u"無い"_s, ErrorKind::Syntax},
        {QString(), ErrorKind::Syntax},
        {u"DELETE FROM 品目"_s, ErrorKind::State},
        {u"SELECT * FROM _corvane"_s, ErrorKind::Name},
        {u"SELECT * FROM sqlite_schema"_s, ErrorKind::Name},
    };
    for (const auto& [source, kind] : refused) {
        EXPECT_FALSE(rows.open(source, connection)) << source.toStdString();
        EXPECT_FALSE(rows.isOpen());
        EXPECT_TRUE(rows.eof());
        EXPECT_EQ(takeErrors(), QList{kind}) << source.toStdString();
    }
    connection.close();
    EXPECT_FALSE(rows.open(u"品目"_s, connection));
    EXPECT_EQ(takeErrors(), QList{ErrorKind::State});
}

TEST_F(RecordsetTest, ClosingTheConnectionClosesWhatReadsFromIt)
{
    fill(100);
    Recordset rows;
    ASSERT_TRUE(rows.open(InOrder, connection));
    connection.close();
    EXPECT_FALSE(rows.isOpen());
    EXPECT_FALSE(rows.moveNext());
    EXPECT_EQ(rows.recordCount(), -1);
    EXPECT_TRUE(connection.open(data(), Password, Mode::ShareExclusive));
}

} // namespace
