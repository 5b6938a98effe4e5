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

using namespace Qt::StringLiterals;
using core::DataFileEntry;
using core::DataKind;
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
        return entries(kind).first();
    }

    bool run(const DataFileEntry& entry)
    {
        return core::Optimise(shared, entry, [] {});
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
        EXPECT_TRUE(run(entry));
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
        EXPECT_FALSE(run(entry));
    }
    const QString left = file(u"Care/最適化.mdb"_s);
    writeFile(u"Care/最適化.mdb"_s, "left over");
    EXPECT_FALSE(run(entry));
    const Box naming{16,
                     refusal.text + u"\r\n前に途中で終わった最適化の「"_s + left
                         + u"」が残っています。一覧のデータをすべて開けることが確認できれば、"
                           "削除しても構いません。"_s};
    EXPECT_THAT(messages.takeBoxes(), ElementsAre(refusal, naming));
    EXPECT_EQ(QFileInfo(left).size(), 9);

    // What is registered is no left-over.
    execute(u"INSERT INTO main (種類,ﾃﾞｰﾀ) VALUES ('修理管理','最適化')"_s);
    EXPECT_FALSE(run(entry));
    EXPECT_THAT(messages.takeBoxes(), ElementsAre(refusal));
    EXPECT_EQ(countRows(DataKind::Repair), Rows / 2);
    EXPECT_EQ(shared.CustomerDataPath, QString());
}

TEST_F(Optimisation, KeepsRightsAndLinksOfTheFile)
{
    const DataFileEntry entry = makeFile(DataKind::Customer);
    const QString real = file(u"本体.mdb"_s);
    const auto forGroup =
        QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup;
    ASSERT_TRUE(QFile::rename(path(DataKind::Customer), real));
    ASSERT_TRUE(QFile::link(real, path(DataKind::Customer)));
    ASSERT_TRUE(QFile::setPermissions(real, forGroup));
    const qint64 before = QFileInfo(real).size();
    EXPECT_TRUE(run(entry));
    messages.takeBoxes();
    EXPECT_LT(QFileInfo(real).size(), before * 3 / 4);
    EXPECT_TRUE(QFileInfo(path(DataKind::Customer)).isSymLink());
    EXPECT_EQ(QFile::permissions(real) & (QFile::WriteGroup | QFile::ReadOther), QFile::WriteGroup);
}

TEST_F(Optimisation, KilledAtAnyMomentLeavesTheFileUnderItsName)
{
    const int kills = rounds("CORVANE_KILLS", 50);
    const DataFileEntry entry = makeFile(DataKind::Customer);
    const QString file = path(DataKind::Customer);
    const QString draft = QFileInfo(file).path() + u"/最適化.mdb"_s;
    ASSERT_TRUE(QFile::copy(file, file + u".kept"_s));
    core::CloseMainDatabase(shared); // nothing may be open where a child process starts
    const auto prepare = [&] {
        QFile::remove(file);
        QFile::remove(draft);
        QFile::remove(draft + u"-journal"_s);
        ASSERT_TRUE(QFile::copy(file + u".kept"_s, file));
    };
    const auto look = [&] {
        ASSERT_TRUE(QFile::exists(file));
        EXPECT_EQ(countRows(DataKind::Customer), Rows / 2);
    };
    killAtAllMoments(
        kills, prepare, [&] { return run(entry); }, look);
}
