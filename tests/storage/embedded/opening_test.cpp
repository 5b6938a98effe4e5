#include "storage_contract/scratch_file.h"
#include "support/child_process.h"
#include "support/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <csignal>

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

class Opening : public ScratchFile {
protected:
    QList<ErrorKind> openFails(const QString& file, const QString& password = Password)
    {
        Connection other;
        EXPECT_FALSE(other.open(file, password));
        EXPECT_FALSE(other.isOpen());
        if (other.lastError().kind == ErrorKind::Unreadable) {
            EXPECT_EQ(other.lastError().message,
                      u"ファイルを読み込めません。ファイルが壊れているか、"
                      "このプログラムのファイルではありません。"_s);
        }
        return takeErrors(other);
    }
};

constexpr qint64 Page = 4096;

QByteArray randomBytes(qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    QRandomGenerator generator(20040229);
    for (char& byte : bytes)
        byte = static_cast<char>(generator.bounded(256));
    return bytes;
}

TEST_F(Opening, WhatIsNoDataFileIsUnreadableAndStaysAsItIs)
{
    connection.close();
    const QByteArray whole = contentOf(path());
    ASSERT_GT(whole.size(), 3 * Page);
    QByteArray flipped = whole;
    flipped[100] = static_cast<char>(flipped[100] ^ 0x10);
    const std::vector<std::pair<const char*, QByteArray>> files = {
        {"empty", {}},
        {"one byte", "x"},
        {"text", QByteArray("これはデータファイルではない。\r\n").repeated(500)},
        {"random bytes", randomBytes(whole.size())},
        {"random bytes behind the salt", whole.first(16) + randomBytes(whole.size() - 16)},
        {"cut inside the first page", whole.first(1000)},
        {"cut behind the first page", whole.first(Page)},
        {"cut by a page", whole.chopped(Page)},
        {"cut inside the last page", whole.chopped(1)},
        {"a flipped bit", flipped},
    };
    for (const auto& [name, bytes] : files) {
        SCOPED_TRACE(name);
        const QString file = path(u"他.mdb"_s);
        ASSERT_TRUE(writeBytes(file, bytes));
        EXPECT_EQ(openFails(file), QList{ErrorKind::Unreadable});
        EXPECT_EQ(contentOf(file), bytes);
        EXPECT_FALSE(QFileInfo::exists(file + u"-journal"_s));
    }
    EXPECT_EQ(openFails(path(), u"鍵 of the File"_s), QList{ErrorKind::Unreadable});
    EXPECT_EQ(openFails(path(), QString()), QList{ErrorKind::Unreadable});
    ASSERT_TRUE(QDir().mkdir(path(u"フォルダー.mdb"_s)));
    EXPECT_EQ(openFails(path(u"フォルダー.mdb"_s)), QList{ErrorKind::Unreadable});
    EXPECT_EQ(contentOf(path()), whole);
}

TEST_F(Opening, DamageInTheMiddleFailsTheStatementThatMeetsIt)
{
    fill(500);
    connection.close();
    QByteArray bytes = contentOf(path());
    for (qsizetype at = 6 * Page; at < bytes.size(); at += Page)
        bytes[at + 2000] = static_cast<char>(bytes[at + 2000] + 1);
    ASSERT_TRUE(writeBytes(path(), bytes));
    ASSERT_TRUE(connection.open(path(), Password));
    Recordset all;
    if (all.open(u"SELECT * FROM 品目"_s, connection)) {
        while (!all.eof())
            all.moveNext();
    }
    EXPECT_EQ(connection.lastError().message, u"ファイルの一部が壊れている為、読み込めません。"_s);
    EXPECT_FALSE(connection.lastError().details.isEmpty());
    EXPECT_EQ(takeErrors(), QList{ErrorKind::Unreadable});
}

// A page of the file that holds rows and no index is written over.
TEST_F(Opening, RowsThatCanBeReadStayBesideThoseThatCannot)
{
    constexpr int Rows = 9000;
    fill(Rows);
    connection.close();
    const qint64 pages = QFileInfo(path()).size() / Page;
    qint64 damaged = 0;
    for (qint64 page = pages / 2; page > 2 && damaged == 0; --page) {
        const QByteArray sound = overwrite(path(), page * Page, QByteArray(Page, 'x'));
        Connection reading;
        ASSERT_TRUE(reading.open(path(), Password));
        Recordset list;
        list.setPageSize(Rows);
        // Found by the index over the names; damaged there, nothing can be found at all.
        if (list.open(u"SELECT 番号, 名称, 数量 FROM 品目 ORDER BY 名称 DESC, 番号"_s, reading)) {
            qint64 read = 0;
            for (qint64 position = 1; position <= Rows; ++position) {
                if (list.setAbsolutePosition(position))
                    ++read;
                else if (list.isUnreadable())
                    ++damaged;
            }
            EXPECT_EQ(read + damaged, Rows);
            EXPECT_EQ(reading.errors().size(), damaged > 0 ? 1 : 0);
        }
        reading.clearErrors();
        ASSERT_EQ(overwrite(path(), page * Page, sound).size(), Page);
    }
    EXPECT_GT(damaged, 0);
    EXPECT_LT(damaged, Rows / 10);
}

TEST_F(Opening, NothingIsCreatedByOpening)
{
    EXPECT_EQ(openFails(path(u"無い.mdb"_s)), QList{ErrorKind::Missing});
    EXPECT_EQ(openFails(path(u"無い/無い.mdb"_s)), QList{ErrorKind::Missing});
    EXPECT_FALSE(QFileInfo::exists(path(u"無い.mdb"_s)));
    EXPECT_FALSE(QFileInfo::exists(path(u"無い.ldb"_s)));
}

TEST_F(Opening, AnotherWayToTheSameFileLeadsToTheSameLock)
{
    connection.close();
    ASSERT_TRUE(QFile::link(path(), path(u"近道.mdb"_s)));
    OtherCopy exclusive(path(), Mode::ShareExclusive);
    EXPECT_EQ(openFails(path(u"近道.mdb"_s)), QList{ErrorKind::InUse});
    exclusive.connection.close();
    EXPECT_TRUE(connection.open(path(u"近道.mdb"_s), Password, Mode::ShareExclusive));
}

// What a crash leaves half written is rolled back by the right password, and not touched before.
TEST_F(Opening, AWrongPasswordDoesNotTouchWhatACrashLeft)
{
    fill(300);
    connection.close();
    ChildProcess child([this](const ChildProcess::StepDone&) {
        Connection own;
        // More than the cache holds, so that changed pages stand in the file before the commit.
        bool done = own.open(path(), Password) && own.begin();
        for (int i = 0; i < 400 && done; ++i) {
            done = own.execute(u"INSERT INTO 品目 (名称) VALUES ('"_s + QString(40000, u'長')
                               + u"')"_s);
        }
        done = done && own.execute(u"DELETE FROM 品目 WHERE 数量 > 0"_s);
        return raise(SIGKILL) == 0 && done;
    });
    EXPECT_FALSE(child.succeeded());
    const QString journal = path() + u"-journal"_s;
    ASSERT_GT(QFileInfo(journal).size(), 0);
    ASSERT_GT(QFileInfo(path()).size(), 30'000'000);

    EXPECT_FALSE(connection.open(path(), u"違う"_s));
    EXPECT_EQ(takeErrors(), QList{ErrorKind::Unreadable});
    ASSERT_TRUE(connection.open(path(), Password));
    EXPECT_FALSE(QFileInfo::exists(journal));
    EXPECT_EQ(rows(u"SELECT 番号 FROM 品目"_s).size(), 300);
    EXPECT_EQ(integrity(connection), u"ok"_s);
}

TEST_F(Opening, CreatingNeverWritesOverAFile)
{
    Connection other;
    connection.close();
    EXPECT_FALSE(other.create(path(), Password, definition()));
    ASSERT_TRUE(writeBytes(path(u"新.mdb-journal"_s), "left by a crash"));
    EXPECT_FALSE(other.create(path(u"新.mdb"_s), Password, definition()));
    EXPECT_FALSE(other.create(path(u"無い/新.mdb"_s), Password, definition()));
    EXPECT_EQ(takeErrors(other), (QList{ErrorKind::Exists, ErrorKind::Exists, ErrorKind::Missing}));
    EXPECT_FALSE(QFileInfo::exists(path(u"新.mdb"_s)));

    schema::Definition broken = definition();
    broken.indexes[0].parts[0].column = u"無い列"_s;
    EXPECT_FALSE(other.create(path(u"半端.mdb"_s), Password, broken));
    EXPECT_EQ(other.errors().size(), 1);
    EXPECT_FALSE(QFileInfo::exists(path(u"半端.mdb"_s)));
    EXPECT_TRUE(connection.open(path(), Password));
}

TEST_F(Opening, NothingOfTheContentIsReadableInTheFile)
{
    execute(u"INSERT INTO 品目 (名称) VALUES ('plain words in a row')"_s);
    connection.close();
    const QByteArray bytes = contentOf(path());
    EXPECT_FALSE(bytes.contains("plain words"));
    EXPECT_FALSE(bytes.contains(QByteArray("品目")));
    EXPECT_FALSE(bytes.contains("SQLite format"));
}

TEST_F(Opening, AFolderThatCannotBeWrittenIsReadOnly)
{
    connection.close();
    {
        const ReadOnlyFolder folder(QFileInfo(path()).path());
        if (!folder.holds())
            GTEST_SKIP() << "a superuser that may not mount";
        EXPECT_EQ(openFails(path()), QList{ErrorKind::ReadOnly});
    }
    EXPECT_TRUE(connection.open(path(), Password));
}

} // namespace
