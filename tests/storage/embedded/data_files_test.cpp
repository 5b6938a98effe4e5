#include "storage/data_files/data_files.h"

#include "storage/engine/engine.h"
#include "storage_contract/scratch_file.h"
#include "support/child_process.h"
#include "support/files.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <csignal>
#include <optional>

#include <sys/resource.h>

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

std::optional<ErrorKind> kindOf(const std::optional<Error>& error)
{
    return error ? std::optional(error->kind) : std::nullopt;
}

// A copy of the program that is killed in the middle of a transaction of which a part has reached
// the file, so that only the journal knows how the file was.
bool writeUntilKilled(const QString& path)
{
    Connection file;
    const bool written = file.open(path, ScratchFile::Password) && file.begin()
        && !file.session()->run({u"PRAGMA cache_size = 2"_s, {}}, nullptr)
        && file.execute(u"UPDATE 品目 SET 名称 = 名称 & '（書きかけ）', 数量 = 0"_s);
    if (written)
        raise(SIGKILL);
    return false;
}

class DataFiles : public ScratchFile {
protected:
    void SetUp() override
    {
        ScratchFile::SetUp();
        fill(2000);
        connection.close();
    }

    void killInTheMiddle()
    {
        const QByteArray before = contentOf(path());
        EXPECT_FALSE(ChildProcess([this] { return writeUntilKilled(path()); }).succeeded());
        ASSERT_TRUE(QFileInfo::exists(journal()));
        ASSERT_NE(contentOf(path()), before);
    }

    // The rows are those of fill(), and the file is sound.
    void expectWhole(const QString& file)
    {
        ASSERT_TRUE(connection.open(file, Password))
            << connection.lastError().message.toStdString();
        EXPECT_EQ(rows(u"select count(*), sum(数量), max(番号) from 品目"_s),
                  QStringList{u"2000|2001000|2000"_s});
        EXPECT_EQ(rows(u"select 数量 from 品目 where 名称 = '品1999'"_s), QStringList{u"1999"_s});
        EXPECT_EQ(integrity(connection), u"ok"_s);
        connection.close();
        EXPECT_FALSE(QFileInfo::exists(file + u"-journal"_s));
    }

    QString journal() const { return path() + u"-journal"_s; }
    QString other() const { return path(u"別.mdb"_s); }
};

TEST_F(DataFiles, CreateCopiesATemplateAndReplacesAHalfCopyOfAnEarlierTry)
{
    ASSERT_TRUE(writeBytes(other() + u".new"_s, "half a copy"));
    EXPECT_EQ(kindOf(data_files::create(path(), other())), std::nullopt);
    EXPECT_FALSE(QFileInfo::exists(other() + u".new"_s));
    EXPECT_EQ(contentOf(other()), contentOf(path()));
    expectWhole(other());
    const QString missingFolder = path(u"無い/四.mdb"_s);
    EXPECT_TRUE(data_files::create(path(), missingFolder));
    EXPECT_FALSE(data_files::exists(missingFolder));
}

TEST_F(DataFiles, RenameRollsALeftOverJournalBack)
{
    killInTheMiddle();
    EXPECT_EQ(kindOf(data_files::rename(path(), other(), Password)), std::nullopt);
    EXPECT_FALSE(data_files::exists(path()));
    EXPECT_FALSE(QFileInfo::exists(journal()));
    expectWhole(other());
}

TEST_F(DataFiles, CompactRollsALeftOverJournalBack)
{
    killInTheMiddle();
    EXPECT_EQ(kindOf(data_files::compact(path(), other(), Password)), std::nullopt);
    expectWhole(other());
    expectWhole(path());
}

TEST_F(DataFiles, RemoveTakesTheJournalAlong)
{
    ASSERT_EQ(kindOf(data_files::create(path(), other())), std::nullopt);
    killInTheMiddle();
    EXPECT_EQ(kindOf(data_files::remove(path())), std::nullopt);
    EXPECT_FALSE(data_files::exists(path()));
    EXPECT_FALSE(QFileInfo::exists(journal()));
    // The name is free for a file that knows nothing of the removed one.
    EXPECT_EQ(kindOf(data_files::create(other(), path())), std::nullopt);
    expectWhole(path());
    EXPECT_EQ(kindOf(data_files::remove(path())), std::nullopt);
    EXPECT_EQ(kindOf(data_files::remove(path())), ErrorKind::Missing);
}

TEST_F(DataFiles, WhatIsThereIsNeverOverwritten)
{
    const QString free = path(u"空き.mdb"_s);
    ASSERT_TRUE(writeBytes(other(), "short"));
    ASSERT_TRUE(writeBytes(free + u"-journal"_s, "journal of another file"));
    for (const QString& to : {other(), free}) {
        EXPECT_EQ(kindOf(data_files::create(path(), to)), ErrorKind::Exists);
        EXPECT_EQ(kindOf(data_files::rename(path(), to, Password)), ErrorKind::Exists);
        EXPECT_EQ(kindOf(data_files::compact(path(), to, Password)), ErrorKind::Exists);
    }
    EXPECT_EQ(contentOf(other()), "short");
    EXPECT_FALSE(data_files::exists(free));
    expectWhole(path());
}

TEST_F(DataFiles, ACompactedFileKeepsPasswordAndCounters)
{
    ASSERT_TRUE(connection.open(path(), Password));
    execute(u"DELETE FROM 品目 WHERE 番号 > 100"_s);
    connection.close();
    ASSERT_EQ(kindOf(data_files::compact(path(), other(), Password)), std::nullopt);
    EXPECT_LT(QFileInfo(other()).size(), QFileInfo(path()).size());

    Connection stranger;
    EXPECT_FALSE(stranger.open(other(), u"another"_s));
    EXPECT_EQ(takeErrors(stranger), QList{ErrorKind::Unreadable});
    EXPECT_FALSE(contentOf(other()).contains("品目"));

    ASSERT_TRUE(connection.open(other(), Password));
    execute(u"INSERT INTO 品目 (名称) VALUES ('次')"_s);
    EXPECT_EQ(rows(u"select 番号 from 品目 where 名称 = '次'"_s), QStringList{u"2001"_s});
    EXPECT_EQ(rows(u"select count(*) from 品目"_s), QStringList{u"101"_s});
}

// A file may grow no larger than this here, as on a disk that is full.
bool failsOnAFullDisk(rlim_t bytes, const std::function<std::optional<Error>()>& step)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, bytes};
    return setrlimit(RLIMIT_FSIZE, &limit) == 0 && step().has_value();
}

TEST_F(DataFiles, AStepThatRunsOutOfSpaceLeavesNothingBehind)
{
    const auto size = static_cast<rlim_t>(QFileInfo(path()).size());
    const std::function<std::optional<Error>()> steps[] = {
        [this] { return data_files::create(path(), other()); },
        [this] { return data_files::compact(path(), other(), Password); },
    };
    for (const auto& step : steps) {
        EXPECT_TRUE(ChildProcess([&] { return failsOnAFullDisk(size / 2, step); }).succeeded());
        for (const QString& left : {other(), other() + u".new"_s, other() + u"-journal"_s})
            EXPECT_FALSE(QFileInfo::exists(left)) << left.toStdString();
        expectWhole(path());
    }
}

} // namespace
