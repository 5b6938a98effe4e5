#include "core/data/main_access.h"

#include "core/data/administrator.h"
#include "core/data/database_password.h"
#include "core/data/main_database.h"
#include "core/data/program_folder.h"
#include "core/data/start_up.h"
#include "support/core/data/core_test.h"
#include "support/files.h"
#include "support/storage/refusals.h"

#include <QDir>
#include <QFile>

#include <gmock/gmock.h>

#include <functional>

using namespace Qt::StringLiterals;
using core::DataKind;
using storage::schema::Version;
using testing::ElementsAre;
using testing::IsEmpty;
using Box = ScriptedMessages::Box;

namespace {

const QString versionOnly = u"SELECT ﾃﾞｰﾀ FROM main WHERE [No] = 5"_s;

// A main.mdb that cannot be opened, and how it is broken and healed.
class MainAccess : public CoreTest {
protected:
    struct Broken {
        const char* name;
        std::function<bool()> break_; // false where the machine does not allow it
        QString reason;               // or a part of it
        std::function<void()> heal;
    };

    void SetUp() override
    {
        makeFolder(Version::V300);
        shared.programFolder = folder();
        core::OpenMainDatabase(shared);
        execute(u"INSERT INTO main (種類,ﾃﾞｰﾀ) VALUES ('顧客管理','見本')"_s);
        core::CloseMainDatabase(shared);
        shared.mainIdentity.clear();
        ASSERT_TRUE(QFile::copy(path, file(u"kept"_s)));
    }

    bool start() { return core::Main(shared, {folder(), {}}); }

    bool overwrite(const QByteArray& content) const { return writeBytes(path, content); }

    // As somebody does who restores a copy over the file, or puts it in its place.
    void restore() const { ASSERT_TRUE(overwrite(contentOf(file(u"kept"_s)))); }

    void replace() const
    {
        QFile::remove(path);
        ASSERT_TRUE(QFile::copy(file(u"kept"_s), path));
    }

    bool forbidWriting(const QString& of)
    {
        m_forbidden.emplace(of);
        return m_forbidden->holds();
    }

    // The one message that every step gives.
    void expectTold(const QString& reason)
    {
        const QString text = messages.takeText();
        EXPECT_TRUE(
            text.startsWith(u"main.mdb を開けませんでした。\r\n場所： "_s + path + u"\r\n"_s))
            << text.toStdString();
        EXPECT_TRUE(text.contains(reason)) << text.toStdString();
    }

    // Each routine that needs main.mdb says why it cannot go on, and does nothing.
    void expectAllTell(const QString& reason)
    {
        const std::function<bool()> steps[] = {
            [this] { return core::ListDataFiles(shared, DataKind::Customer).has_value(); },
            [this] { return core::ListDataFilesForOpen(shared, std::nullopt).has_value(); },
            [this] { return core::AddDataFile(shared, DataKind::Repair, u"新"_s, {}); },
            [this] { return core::ChangeDataFile(shared, sample, u"新"_s, {}); },
            [this] { return core::DeleteDataFile(shared, sample); },
            [this] { return core::CheckAdministrator(shared, u"Admin"_s, {}).has_value(); },
            [this] { return core::LoadAdministrator(shared).has_value(); },
            [this] {
                return core::SaveAdministrator(shared, {u"店長"_s, {}});
            },
        };
        for (const auto& step : steps) {
            EXPECT_FALSE(step());
            expectTold(reason);
        }
        EXPECT_FALSE(core::isMainDatabaseOpen(shared));
        EXPECT_FALSE(QFile::exists(file(u"Care"_s)));
    }

    void expectWorks()
    {
        EXPECT_EQ(entries(DataKind::Customer).size(), 1);
        EXPECT_EQ(core::CheckAdministrator(shared, u"Admin"_s, {}), true);
        EXPECT_THAT(rows(versionOnly), ElementsAre(u"3.1.1"_s)); // the upgrade came with it
        EXPECT_THAT(messages.takeBoxes(), IsEmpty());
    }

    const QString path = file(u"main.mdb"_s);
    const core::DataFileEntry sample{6, u"見本"_s, {}, DataKind::Customer};
    storage::Connection holder;
    std::optional<ReadOnlyFolder> m_forbidden;
};

} // namespace

TEST_F(MainAccess, EveryStepSaysWhyItFailsAndWorksOnceTheCauseIsGone)
{
    const QString unreadable =
        u"ファイルが壊れているか、このプログラムのファイルではありません。"_s;
    const Broken states[] = {
        {"missing", [this] { return QFile::rename(path, file(u"aside"_s)); },
         u"データのファイルはありますが、main.mdb がありません。"_s,
         [this] { QFile::rename(file(u"aside"_s), path); }},
        {"damaged", [this] { return overwrite(QByteArray(20'000, 'x')); }, unreadable,
         [this] { restore(); }},
        {"empty", [this] { return overwrite({}); }, unreadable, [this] { replace(); }},
        {"of another program", [this] { return overwrite("SQLite format 3"); }, unreadable,
         [this] { replace(); }},
        {"a data file of ours",
         [this] { return QFile::remove(path) && QFile::copy(file(u"Care.mdb"_s), path); },
         u"main.mdb ではありません。"_s, [this] { replace(); }},
        {"read-only", [this] { return forbidWriting(path); }, u"main.mdb に書き込めません。"_s,
         [this] { m_forbidden.reset(); }},
        {"folder not writable", [this] { return forbidWriting(folder()); },
         u"プログラムフォルダー 『 "_s + folder() + u" 』 に書き込めません。"_s,
         [this] { m_forbidden.reset(); }},
        {"held exclusively",
         [this] {
             return holder.open(path, QString::fromUtf16(core::DatabasePassword),
                                storage::Mode::ShareExclusive);
         },
         u"使用中"_s, [this] { holder.close(); }},
    };
    for (const Broken& state : states) {
        SCOPED_TRACE(state.name);
        if (!state.break_()) {
            EXPECT_TRUE(m_forbidden && !m_forbidden->holds()); // a superuser that may not mount
            state.heal();
            continue;
        }
        ASSERT_TRUE(start());
        EXPECT_THAT(messages.takeBoxes(), IsEmpty()); // the start is silent
        expectAllTell(state.reason);
        state.heal();
        expectWorks();
        core::CloseMainDatabase(shared);
        shared.instanceLock.reset();
        shared.mainIdentity.clear();
        replace();
    }
}

TEST_F(MainAccess, AFileThatBreaksWhileItIsOpenIsNoticed)
{
    ASSERT_TRUE(start());
    expectWorks();
    ASSERT_TRUE(QFile::rename(path, file(u"aside"_s)));
    expectAllTell(u"データのファイルはありますが、main.mdb がありません。"_s);
    ASSERT_TRUE(QFile::rename(file(u"aside"_s), path));
    expectWorks();
    ASSERT_TRUE(overwrite(QByteArray(40'000, 'x')));
    expectAllTell(u"壊れている"_s);
    restore();
    expectWorks();
    // Another file in its place, which nobody has met with a step in between.
    replace();
    expectWorks();
    takeErrors();
}

TEST_F(MainAccess, AFolderThatCannotBeFilledIsToldAndFilledLater)
{
    const QString home = file(u"home"_s);
    writeFile(u"home"_s, "in the way");
    ASSERT_TRUE(core::Main(shared, {home, folder()}));
    EXPECT_THAT(messages.takeBoxes(), IsEmpty());
    EXPECT_FALSE(core::ListDataFiles(shared, DataKind::Customer));
    EXPECT_TRUE(messages.takeText().contains(home + u"/main.mdb\r\n"_s));
    ASSERT_TRUE(QFile::remove(home));
    EXPECT_EQ(entries(DataKind::Customer).size(), 1);

    // Once it has been worked in, an empty place is a drive that is away and no new shop.
    ASSERT_TRUE(QDir().rename(home, file(u"away"_s)));
    ASSERT_TRUE(QDir().mkdir(home));
    EXPECT_FALSE(core::ListDataFiles(shared, DataKind::Customer));
    messages.takeBoxes();
    EXPECT_TRUE(core::isEmptyFolder(home));
    ASSERT_TRUE(QDir().rmdir(home));
    ASSERT_TRUE(QDir().rename(file(u"away"_s), home));
    EXPECT_EQ(entries(DataKind::Customer).size(), 1);
    takeErrors();
}
