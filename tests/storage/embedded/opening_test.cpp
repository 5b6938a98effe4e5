#include "storage_contract/scratch_file.h"
#include "support/child_process.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <csignal>
#include <functional>

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

class Opening : public ScratchFile {
protected:
    QList<ErrorKind> openFails(const QString& file, const QString& password = Password,
                               Mode mode = Mode::ReadWrite)
    {
        Connection other;
        EXPECT_FALSE(other.open(file, password, mode));
        EXPECT_FALSE(other.isOpen());
        return takeErrors(other);
    }
};

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray read(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

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
    const QByteArray whole = read(path());
    ASSERT_GT(whole.size(), 3 * 4096);
    QByteArray flipped = whole;
    flipped[100] = static_cast<char>(flipped[100] ^ 0x10);
    const std::vector<std::pair<const char*, QByteArray>> files = {
        {"empty", {}},
        {"one byte", "x"},
        {"text", QByteArray("これはデータファイルではない。\r\n").repeated(500)},
        {"random bytes", randomBytes(whole.size())},
        {"random bytes behind the salt", whole.first(16) + randomBytes(whole.size() - 16)},
        {"cut inside the first page", whole.first(1000)},
        {"cut behind the first page", whole.first(4096)},
        {"cut by a page", whole.chopped(4096)},
        {"cut inside the last page", whole.chopped(1)},
        {"a flipped bit", flipped},
    };
    for (const auto& [name, bytes] : files) {
        SCOPED_TRACE(name);
        const QString file = path(u"他.mdb"_s);
        writeBytes(file, bytes);
        EXPECT_EQ(openFails(file), QList{ErrorKind::Unreadable});
        EXPECT_EQ(read(file), bytes);
        EXPECT_FALSE(QFileInfo::exists(file + u"-journal"_s));
    }
    EXPECT_EQ(openFails(path(), u"鍵 of the File"_s), QList{ErrorKind::Unreadable});
    EXPECT_EQ(openFails(path(), QString()), QList{ErrorKind::Unreadable});
    ASSERT_TRUE(QDir().mkdir(path(u"フォルダー.mdb"_s)));
    EXPECT_EQ(openFails(path(u"フォルダー.mdb"_s)), QList{ErrorKind::Unreadable});
    EXPECT_EQ(read(path()), whole);
}

TEST_F(Opening, UnreadableFilesGetOneMessage)
{
    writeBytes(path(u"他.mdb"_s), "x");
    Connection other;
    EXPECT_FALSE(other.open(path(u"他.mdb"_s), Password));
    EXPECT_FALSE(other.open(path(), u"違う"_s));
    ASSERT_EQ(other.errors().size(), 2);
    EXPECT_EQ(other.errors()[0].message,
              u"ファイルを読み込めません。ファイルが壊れているか、"
              "このプログラムのファイルではありません。"_s);
    EXPECT_EQ(other.errors()[1].message, other.errors()[0].message);
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
    writeBytes(path(u"新.mdb-journal"_s), "left by a crash");
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
    const QByteArray bytes = read(path());
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
