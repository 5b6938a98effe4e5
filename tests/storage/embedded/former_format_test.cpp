#include "storage/engine/engine.h"
#include "storage_contract/scratch_file.h"
#include "support/child_process.h"
#include "support/storage/former_format.h"

#include <QFile>

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

const QString Journal = u"日誌"_s;

schema::Definition journal(bool former)
{
    using enum schema::ColumnType;
    using enum schema::IndexForm;
    schema::Definition made;
    made.tables = {schema::Table(Journal,
                                 {{u"番号"_s, AutoNumber},
                                  {.name = u"日"_s, .isDay = !former},
                                  {.name = u"記録者"_s, .isListed = !former},
                                  {u"文"_s}},
                                 u"番号"_s)};
    const schema::Index text{u"_日誌_文"_s, Journal, {{u"文"_s, Key}}};
    if (former)
        made.indexes = {{u"_日誌_日(key)"_s, Journal, {{u"日"_s, Key}}},
                        {u"_日誌_記録者(key)"_s, Journal, {{u"記録者"_s, Key}}},
                        text};
    else
        made.indexes = {{u"_日誌_日(fold)"_s, Journal, {{u"日"_s, Fold}, {u"番号"_s}}}, text};
    return made;
}

// A file as the program before this one has made it.
class FormerFormat : public ScratchFile {
protected:
    void SetUp() override
    {
        ScratchFile::SetUp();
        connection.close();
        makeFile(200);
    }

    void makeFile(int rows)
    {
        QFile::remove(file());
        ASSERT_TRUE(connection.create(file(), Password, journal(true)));
        ASSERT_TRUE(connection.begin());
        for (int i = 0; i < rows; ++i) {
            const QString day = u"2024/%1/%2(月)"_s.arg(i % 12 + 1, 2, 10, QChar(u'0'))
                                    .arg(i * 7 % 28 + 1, 2, 10, QChar(u'0'));
            const QString name = QStringList{u"佐野"_s, u"ｱｵｷ"_s, u"アオキ"_s, u""_s}[i % 4];
            execute(u"INSERT INTO 日誌 (日, 記録者, 文) VALUES ('"_s + day + u"', '"_s + name
                    + u"', '電話した')"_s);
        }
        for (const QString& day : {u"Null"_s, u"''"_s, u"'未定'"_s})
            execute(u"INSERT INTO 日誌 (日) VALUES ("_s + day + u')');
        ASSERT_TRUE(connection.commit());
        makeFormerFormat(connection);
        connection.close();
    }

    QString file() const { return path(u"日誌.mdb"_s); }

    QStringList answers() { return answers(connection); }
    static QStringList answers(Connection& from)
    {
        QStringList all = from.distinctTexts(Journal, u"記録者"_s);
        for (
            const QString& statement :
            {u"SELECT * FROM 日誌 ORDER BY 日, 番号"_s,
             u"SELECT * FROM 日誌 ORDER BY 日 DESC, 番号"_s,
             u"SELECT 番号 FROM 日誌 WHERE 日 Between '2024/03/05' And '2024/07/01(月)' ORDER BY 番号"_s,
             u"SELECT max(日), min(日), count(*) FROM 日誌 WHERE 日 < '2025'"_s,
             u"SELECT 番号 FROM 日誌 WHERE 日 Like '2024/02%' OR 日 = '2024/03/01(月)' ORDER BY 番号"_s})
            all += rows(from, statement);
        return all;
    }
};

const QStringList FormerIndexes = {u"_日誌_文"_s, u"_日誌_日(key)"_s, u"_日誌_記録者(key)"_s};
const QStringList Indexes = {u"_日誌_文"_s, u"_日誌_日(fold)"_s};

TEST_F(FormerFormat, IsConvertedByTheOnlyCopyAndAnswersAsBefore)
{
    for (const Mode mode : {Mode::ReadWrite, Mode::ShareExclusive}) {
        ASSERT_TRUE(connection.open(file(), Password, mode));
        EXPECT_TRUE(hasFormerFormat(connection));
        EXPECT_EQ(indexNames(connection), FormerIndexes);
        const QStringList before = answers();
        EXPECT_TRUE(connection.bringUpToDate(journal(false)));
        EXPECT_FALSE(hasFormerFormat(connection));
        EXPECT_EQ(indexNames(connection), Indexes);
        EXPECT_EQ(answers(), before);
        EXPECT_EQ(integrity(connection), u"ok"_s);
        if (mode == Mode::ReadWrite) // shared again after the moment alone
            OtherCopy other(file());
        connection.close();

        ASSERT_TRUE(connection.open(file(), Password, mode));
        EXPECT_FALSE(hasFormerFormat(connection));
        EXPECT_EQ(answers(), before);
        connection.close();
        makeFile(200);
    }
}

TEST_F(FormerFormat, ConvertingTwiceInARowChangesNothing)
{
    ASSERT_TRUE(connection.open(file(), Password));
    EXPECT_TRUE(connection.bringUpToDate(journal(false)));
    const QString changes = askEngine(connection, u"PRAGMA data_version"_s);
    OtherCopy other(file());
    EXPECT_TRUE(other.connection.bringUpToDate(journal(false)));
    EXPECT_TRUE(connection.bringUpToDate(journal(false)));
    EXPECT_EQ(askEngine(connection, u"PRAGMA data_version"_s), changes);
}

TEST_F(FormerFormat, IsUsedAsItIsWhileAnotherCopyHasItOpen)
{
    ASSERT_TRUE(connection.open(file(), Password));
    const QStringList before = answers();
    {
        OtherCopy other(file());
        EXPECT_TRUE(connection.bringUpToDate(journal(false)));
        EXPECT_TRUE(other.connection.bringUpToDate(journal(false)));
        EXPECT_TRUE(hasFormerFormat(connection));
        EXPECT_EQ(indexNames(connection), FormerIndexes);
        EXPECT_EQ(answers(), before);
        execute(other.connection,
                u"INSERT INTO 日誌 (日, 記録者) VALUES ('2024/01/01(月)', '工藤')"_s);
        EXPECT_EQ(connection.distinctTexts(Journal, u"記録者"_s),
                  (QStringList{u"アオキ"_s, u"ｱｵｷ"_s, u"工藤"_s, u"佐野"_s}));
    }
    const QStringList asItWas = answers();
    EXPECT_TRUE(connection.bringUpToDate(journal(false)));
    EXPECT_FALSE(hasFormerFormat(connection));
    EXPECT_EQ(answers(), asItWas);
}

TEST_F(FormerFormat, StaysWhenThereIsNoRoomToConvert)
{
    makeFile(3000);
    ASSERT_TRUE(connection.open(file(), Password));
    const QStringList before = answers();
    schema::Definition wide = journal(false);
    for (int i = 0; i < 9; ++i) {
        wide.indexes += {u"_日誌_"_s + QString::number(i),
                         Journal,
                         {{u"文"_s, schema::IndexForm::Key}, {u"日"_s, schema::IndexForm::Key}}};
    }
    limitSize(connection, 2);
    EXPECT_FALSE(connection.bringUpToDate(wide));
    EXPECT_EQ(takeErrors(), QList{ErrorKind::Full});
    EXPECT_TRUE(hasFormerFormat(connection));
    EXPECT_EQ(indexNames(connection), FormerIndexes);
    EXPECT_EQ(answers(), before);
    connection.close();
    ASSERT_TRUE(connection.open(file(), Password));
    EXPECT_TRUE(connection.bringUpToDate(wide));
    EXPECT_EQ(answers(), before);
}

TEST_F(FormerFormat, AKillInTheMiddleLeavesOneFormatOrTheOther)
{
    makeFile(3000);
    ASSERT_TRUE(connection.open(file(), Password));
    const QStringList before = answers();
    connection.close();
    const auto convert = [this] {
        Connection own;
        return own.open(file(), Password) && own.bringUpToDate(journal(false));
    };
    const auto look = [&] {
        ASSERT_TRUE(connection.open(file(), Password));
        EXPECT_EQ(integrity(connection), u"ok"_s);
        EXPECT_EQ(indexNames(connection), hasFormerFormat(connection) ? FormerIndexes : Indexes);
        EXPECT_EQ(answers(), before);
        EXPECT_TRUE(connection.bringUpToDate(journal(false)));
        EXPECT_EQ(indexNames(connection), Indexes);
        EXPECT_EQ(answers(), before);
        connection.close();
    };
    killAtAllMoments(
        rounds("CORVANE_KILLS", 10), [this] { makeFile(3000); }, convert, look);
}

TEST_F(FormerFormat, IsNotTheOnlyOneThatIsKnown)
{
    ASSERT_TRUE(connection.open(file(), Password));
    ASSERT_FALSE(connection.session()->run(
        {u"UPDATE _corvane SET value = '3' WHERE name = 'format'"_s, {}}, nullptr));
    connection.close();
    EXPECT_FALSE(connection.open(file(), Password));
    EXPECT_EQ(connection.lastError().message,
              u"新しい版のコルヴァン３で使われているファイルの為、この版では開けません。"_s);
    EXPECT_EQ(takeErrors(), QList{ErrorKind::Unreadable});
}

} // namespace
