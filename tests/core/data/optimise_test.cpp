#include "core/data/optimise.h"

#include "core/data/database_password.h"
#include "core/data/main_database.h"
#include "core/data/registry.h"
#include "support/child_process.h"
#include "support/core/data/core_test.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gmock/gmock.h>

#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;
using core::DataFileEntry;
using core::DataKind;
using core::Optimise;
using testing::ElementsAre;
using Box = ScriptedMessages::Box;

namespace {

constexpr int Rows = 2000;

class Optimisation : public CoreTest {
protected:
    void SetUp() override { openFolder(); }

    // A registered file with rows in it, half of them deleted again.
    DataFileEntry makeFile(DataKind kind)
    {
        EXPECT_TRUE(AddDataFile(shared, kind, u"見本"_s, {}));
        messages.takeBoxes();
        storage::Connection data;
        EXPECT_TRUE(open(data, kind));
        data.begin();
        for (int i = 0; i < Rows; ++i)
            data.execute(u"INSERT INTO 予定 (予定) VALUES ('"_s + QString(200, u'予') + u"')"_s);
        data.execute(u"DELETE FROM 予定 WHERE 予定更新ID > "_s + QString::number(Rows / 2));
        EXPECT_TRUE(data.commit());
        EXPECT_EQ(data.errors().size(), 0);
        return core::ListDataFiles(shared, kind).first();
    }

    bool open(storage::Connection& data, DataKind kind) const
    {
        return data.open(path(kind), QString::fromUtf16(core::DatabasePassword));
    }

    QString path(DataKind kind) const { return core::dataFile(folder(), kind, u"見本"_s); }

    qint64 countRows(DataKind kind) const
    {
        storage::Connection data;
        storage::Recordset row;
        if (!open(data, kind) || !row.open(u"SELECT count(*) as ma1 FROM 予定"_s, data))
            return -1;
        return row.value(u"ma1").toInteger();
    }
};

} // namespace

TEST_F(Optimisation, CompactsEitherKindInItsPlace)
{
    for (const DataKind kind : {DataKind::Customer, DataKind::Repair}) {
        const DataFileEntry entry = makeFile(kind);
        const qint64 before = QFileInfo(path(kind)).size();
        EXPECT_TRUE(Optimise(shared, entry));
        EXPECT_THAT(messages.takeBoxes(), ElementsAre(Box{64, u"最適化が終了しました。"_s}));
        EXPECT_LT(QFileInfo(path(kind)).size(), before * 3 / 4);
        EXPECT_EQ(countRows(kind), Rows / 2);
        EXPECT_EQ(shared.CustomerDataPath, QString());
    }
    EXPECT_FALSE(QFileInfo::exists(file(u"care"_s)));
    EXPECT_EQ(QDir(file(u"Care"_s)).entryList({u"*.mdb"_s}), QStringList{u"見本.mdb"_s});
}

TEST_F(Optimisation, AFileInUseAndALeftOverAreTold)
{
    const DataFileEntry entry = makeFile(DataKind::Repair);
    const Box refusal{16,
                      u"「 見本 」は使用中の可能性があります。終了させてから実行して下さい。"_s};
    {
        storage::Connection user;
        ASSERT_TRUE(open(user, DataKind::Repair));
        EXPECT_FALSE(Optimise(shared, entry));
    }
    writeFile(u"Care/最適化.mdb"_s, "left over");
    EXPECT_FALSE(Optimise(shared, entry));
    EXPECT_THAT(messages.takeBoxes(), ElementsAre(refusal, refusal));
    EXPECT_EQ(QFileInfo(file(u"Care/最適化.mdb"_s)).size(), 9);
    EXPECT_EQ(countRows(DataKind::Repair), Rows / 2);
    EXPECT_EQ(shared.CustomerDataPath, QString());
}

TEST_F(Optimisation, KilledAtAnyMomentLosesNoRow)
{
    constexpr int Kills = 20;
    const DataFileEntry entry = makeFile(DataKind::Customer);
    const QString file = path(DataKind::Customer);
    const QString draft = QFileInfo(file).path() + u"/最適化.mdb"_s;
    ASSERT_TRUE(QFile::copy(file, file + u".kept"_s));
    core::CloseMainDatabase(shared); // nothing may be open where a child process starts
    for (int i = 0; i < Kills; ++i) {
        {
            ChildProcess copy([&] { return Optimise(shared, entry); });
            std::this_thread::sleep_for(std::chrono::milliseconds(4 * i));
        }
        if (!QFile::exists(file)) { // removed, and not yet renamed
            ASSERT_TRUE(QFile::rename(draft, file));
        }
        EXPECT_EQ(countRows(DataKind::Customer), Rows / 2);
        QFile::remove(draft);
        QFile::remove(draft + u"-journal"_s);
        QFile::remove(file);
        ASSERT_TRUE(QFile::copy(file + u".kept"_s, file));
    }
}
