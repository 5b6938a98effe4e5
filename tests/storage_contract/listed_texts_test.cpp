#include "storage_contract/scratch_file.h"

#include "storage/transaction.h"

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

// A journal whose writers are listed.
class ListedTextsTest : public ScratchFile {
protected:
    void SetUp() override
    {
        ScratchFile::SetUp();
        connection.close();
        schema::Definition journal;
        journal.tables = {
            schema::Table(u"日誌"_s,
                          {{u"番号"_s, schema::ColumnType::AutoNumber},
                           {.name = u"記録者"_s, .isListed = true},
                           {.name = u"区分"_s, .maxLength = 2}},
                          u"番号"_s),
            schema::Table(u"控え"_s, {{u"名前"_s}}, {}),
        };
        ASSERT_TRUE(connection.create(file(), Password, journal));
        connection.close();
        ASSERT_TRUE(connection.open(file(), Password));
    }

    Location file() const { return data(u"日誌.mdb"_s); }
    QStringList listed() { return connection.distinctTexts(u"日誌"_s, u"記録者"_s); }

    bool write(const QString& source, const QString& name)
    {
        Recordset row;
        return row.open(source, connection, CursorType::Dynamic, LockType::Optimistic)
            && (source != u"日誌"_s || row.addNew()) && row.setValue(u"記録者", name)
            && row.update();
    }
};

TEST_F(ListedTextsTest, EveryWayOfWritingBringsItsTexts)
{
    execute(u"INSERT INTO 控え VALUES ('高木')"_s);
    execute(u"INSERT INTO 控え VALUES ('井上')"_s);
    execute(u"INSERT INTO 控え VALUES (Null)"_s);
    const std::vector<std::pair<std::function<bool()>, QStringList>> steps = {
        {[&] { return write(u"日誌"_s, u"佐野"_s); }, {u"佐野"_s}},
        {[&] { return write(u"SELECT * FROM 日誌 WHERE 番号 = 1"_s, u"工藤"_s); }, {u"工藤"_s}},
        {[&] {
             return connection.execute(u"INSERT INTO 日誌 (区分, 記録者) VALUES ('a', 'あ')"_s);
         },
         {u"あ"_s}},
        {[&] { return connection.execute(u"INSERT INTO 日誌 (記録者) SELECT 名前 FROM 控え"_s); },
         {u"井上"_s, u"高木"_s}},
        {[&] {
             return connection.execute(u"UPDATE 日誌 SET 記録者 = 記録者 & '様' WHERE 番号 < 3"_s);
         },
         {u"工藤様"_s, u"あ様"_s}},
        {[&] { return connection.execute(u"UPDATE 日誌 SET 区分 = 'b'"_s); }, {}},
        {[&] { return write(u"日誌"_s, QString()) && write(u"日誌"_s, u"佐野"_s); }, {}},
    };
    QSet<QString> expected;
    for (const auto& [step, brought] : steps) {
        EXPECT_TRUE(step());
        for (const QString& name : brought)
            expected.insert(name);
        const QStringList names = listed();
        EXPECT_EQ(QSet<QString>(names.begin(), names.end()), expected);
        EXPECT_EQ(names.size(), expected.size());
    }
    qint64 affected = 0;
    EXPECT_TRUE(connection.execute(u"UPDATE 日誌 SET 記録者 = '全員' WHERE 番号 > 2"_s, &affected));
    EXPECT_EQ(affected, 5);
}

TEST_F(ListedTextsTest, AreInOrderAndAsTheyAreStored)
{
    for (const QString& name : {u"渡辺"_s, u"ｱｵｷ"_s, u"O'Hara"_s, u"アオキ"_s, u"あおき"_s})
        EXPECT_TRUE(write(u"日誌"_s, name));
    const QStringList names = {u"O'Hara"_s, u"あおき"_s, u"アオキ"_s, u"ｱｵｷ"_s, u"渡辺"_s};
    EXPECT_EQ(listed(), names);
    // The last row with a name goes: it stays offered.
    execute(u"DELETE FROM 日誌 WHERE 記録者 = '渡辺'"_s);
    EXPECT_EQ(listed(), names);
    // Of a column without a list: what its rows hold now.
    for (const QString& name : {u"ｱｵｷ"_s, u"アオキ"_s, u"アオキ"_s, u"*"_s, QString()})
        execute(u"INSERT INTO 控え VALUES ('"_s + name + u"')"_s);
    EXPECT_EQ(connection.distinctTexts(u"控え"_s, u"名前"_s),
              (QStringList{u"*"_s, u"アオキ"_s, u"ｱｵｷ"_s}));
    EXPECT_EQ(connection.distinctTexts(u"控え"_s, u"住所"_s), QStringList());
    EXPECT_EQ(takeErrors(), QList{ErrorKind::Name});
}

TEST_F(ListedTextsTest, GoWithTheTransactionThatBroughtThem)
{
    ASSERT_TRUE(connection.begin());
    EXPECT_TRUE(write(u"日誌"_s, u"佐野"_s));
    ASSERT_TRUE(connection.begin());
    EXPECT_TRUE(write(u"日誌"_s, u"工藤"_s));
    EXPECT_TRUE(connection.rollBack());
    EXPECT_EQ(listed(), QStringList{u"佐野"_s});
    EXPECT_TRUE(connection.rollBack());
    EXPECT_EQ(listed(), QStringList());
    // What was undone is not taken for known.
    EXPECT_TRUE(write(u"日誌"_s, u"工藤"_s));
    execute(u"INSERT INTO 日誌 (記録者) VALUES ('佐野')"_s);
    EXPECT_EQ(listed(), (QStringList{u"工藤"_s, u"佐野"_s}));

    EXPECT_FALSE(
        connection.execute(u"INSERT INTO 日誌 (記録者, 区分) VALUES ('水野', '長い区分')"_s));
    EXPECT_FALSE(connection.execute(u"UPDATE 日誌 SET 記録者 = '水野', 区分 = '長い区分'"_s));
    EXPECT_EQ(takeErrors().size(), 2);
    EXPECT_EQ(listed(), (QStringList{u"工藤"_s, u"佐野"_s}));
    EXPECT_EQ(connection.transactionDepth(), 0);
}

TEST_F(ListedTextsTest, AreThoseOfAllCopies)
{
    OtherCopy other(file());
    EXPECT_TRUE(write(u"日誌"_s, u"佐野"_s));
    execute(other.connection, u"INSERT INTO 日誌 (記録者) VALUES ('佐野')"_s);
    execute(other.connection, u"INSERT INTO 日誌 (記録者) VALUES ('工藤')"_s);
    EXPECT_TRUE(write(u"日誌"_s, u"工藤"_s));
    EXPECT_EQ(listed(), (QStringList{u"工藤"_s, u"佐野"_s}));
    EXPECT_EQ(other.connection.distinctTexts(u"日誌"_s, u"記録者"_s), listed());
    EXPECT_EQ(other.connection.errors().size(), 0);
}

TEST_F(ListedTextsTest, TheirTableIsNoneForStatements)
{
    for (const QString& statement : {u"SELECT * FROM _texts"_s, u"DELETE FROM _columns"_s,
                                     u"UPDATE [_texts] SET [text] = 'x'"_s})
        EXPECT_FALSE(connection.execute(statement));
    EXPECT_EQ(takeErrors(), QList<ErrorKind>(3, ErrorKind::Name));
}

} // namespace
