#include "core/data/registry.h"

#include "core/data/main_database.h"
#include "support/child_process.h"
#include "support/core/data/core_test.h"
#include "support/files.h"

#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QSet>

#include <gmock/gmock.h>

#include <unistd.h>

using namespace Qt::StringLiterals;
using core::AddDataFile;
using core::Answer;
using core::ChangeDataFile;
using core::DataFileEntry;
using core::DataKind;
using core::DeleteDataFile;
using testing::ElementsAre;
using Box = ScriptedMessages::Box;

// No step on one entry may touch what another one names.

namespace {

class RegistryFiles : public CoreTest {
protected:
    void SetUp() override { openFolder(); }

    // All rows, and all data files with their content.
    struct State {
        QStringList rows;
        QMap<QString, QByteArray> files;

        bool operator==(const State& other) const = default;
        friend void PrintTo(const State& state, std::ostream* out)
        {
            *out << state.rows.join(u' ').toStdString() << " / "
                 << state.files.keys().join(u' ').toStdString();
        }
    };

    State state()
    {
        State now{rows(u"SELECT [No],種類,ﾃﾞｰﾀ,ﾊﾟｽﾜｰﾄﾞ FROM main ORDER BY [No]"_s), {}};
        QDirIterator each(folder(), {u"*.mdb"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (each.hasNext()) {
            const QString path = each.next();
            if (!path.endsWith(u"/main.mdb"_s))
                now.files.insert(path.mid(folder().size() + 1), contentOf(path));
        }
        return now;
    }

    // A registered file that can be told from others by its content.
    DataFileEntry addWith(const QString& name, const QByteArray& content)
    {
        const DataFileEntry entry = add(DataKind::Customer, name);
        writeFile(u"Corvane/"_s + name + u".mdb"_s, content);
        return entry;
    }

    // As an older version of the program, or another program, can have left the rows.
    void renameRow(const DataFileEntry& entry, const QString& name)
    {
        execute(u"UPDATE main SET ﾃﾞｰﾀ = '"_s + name + u"' WHERE [No] = "_s
                + QString::number(entry.number));
    }

    void removeAfterAsking(const DataFileEntry& entry, bool isRemoved)
    {
        messages.willAnswer(Answer::Yes);
        EXPECT_EQ(DeleteDataFile(shared, entry), isRemoved);
    }

    const Box notFound{16, u"ﾌｧｲﾙが見つかりません。"_s};
};

} // namespace

TEST_F(RegistryFiles, ANameThatAnotherEntryBearsIsRefused)
{
    addWith(u"甲"_s, "data of 甲");
    const DataFileEntry second = addWith(u"乙"_s, "data of 乙");
    const State before = state();
    EXPECT_FALSE(ChangeDataFile(shared, second, u"甲"_s, u"p"_s));
    EXPECT_THAT(messages.takeBoxes(), ElementsAre(Box{16, u"同じデータ名が存在します。"_s}));
    EXPECT_EQ(state(), before);
    // Also when the other one's file is lost: its row still names it.
    QFile::remove(pathOf(u"甲"_s));
    const State without = state();
    EXPECT_FALSE(ChangeDataFile(shared, second, u"甲"_s, u"p"_s));
    EXPECT_THAT(messages.takeBoxes(), ElementsAre(Box{16, u"同じデータ名が存在します。"_s}));
    EXPECT_EQ(state(), without);
}

TEST_F(RegistryFiles, TwoRowsOfOneNameComeApartWithoutHarmToTheFile)
{
    for (const bool first : {true, false}) {
        const DataFileEntry one = addWith(u"甲"_s, "data of 甲");
        const DataFileEntry two = addWith(u"乙"_s, "data of 乙");
        renameRow(two, u"甲"_s);
        const QMap<QString, QByteArray> files = state().files;

        // Its file is the other row's too, so it stays; the row is changed all the same.
        const DataFileEntry& renamed = first ? one : two;
        EXPECT_FALSE(ChangeDataFile(shared, renamed, u"丙"_s, {}));
        EXPECT_THAT(messages.takeBoxes(), ElementsAre(notFound));
        EXPECT_EQ(state().files, files);

        renameRow(renamed, u"甲"_s);
        removeAfterAsking(renamed, true);
        EXPECT_EQ(messages.takeText(), u"甲 を削除しますか？"_s);
        EXPECT_EQ(state().files, files);
        // The last row that names it takes the file along.
        removeAfterAsking(first ? two : one, true);
        messages.takeBoxes();
        EXPECT_FALSE(QFile::exists(pathOf(u"甲"_s)));
        EXPECT_EQ(contentOf(pathOf(u"乙"_s)), "data of 乙");
        QFile::remove(pathOf(u"乙"_s));
    }
}

TEST_F(RegistryFiles, OneFileUnderTwoNamesIsNeitherMovedNorRemoved)
{
    // As on a file system that ignores letter case; here a link makes it one file.
    const DataFileEntry upper = addWith(u"SHOP"_s, "data");
    const DataFileEntry lower = add(DataKind::Customer, u"別"_s);
    renameRow(lower, u"shop"_s);
    ASSERT_TRUE(QFile::rename(pathOf(u"別"_s), file(u"away"_s)));
    ASSERT_EQ(::link(QFile::encodeName(pathOf(u"SHOP"_s)), QFile::encodeName(pathOf(u"shop"_s))),
              0);
    const QMap<QString, QByteArray> files = state().files;
    EXPECT_FALSE(ChangeDataFile(shared, lower, u"新"_s, {}));
    EXPECT_THAT(messages.takeBoxes(), ElementsAre(notFound));
    EXPECT_EQ(state().files, files);
    renameRow(lower, u"shop"_s);
    removeAfterAsking(lower, true);
    messages.takeBoxes();
    EXPECT_EQ(state().files, files);

    // To the other spelling of its own name nothing needs to be moved.
    EXPECT_TRUE(ChangeDataFile(shared, upper, u"shop"_s, {}));
    EXPECT_EQ(messages.takeBoxes().first().style, 64);
    EXPECT_EQ(state().files, files);
}

TEST_F(RegistryFiles, ARowThatAnotherCopyHasTakenAwayChangesNothing)
{
    const DataFileEntry entry = addWith(u"甲"_s, "data of 甲");
    execute(u"DELETE FROM main WHERE [No] = "_s + QString::number(entry.number));
    addWith(u"乙"_s, "data of 乙");
    const State before = state();
    EXPECT_FALSE(ChangeDataFile(shared, entry, u"丙"_s, {}));
    EXPECT_FALSE(DeleteDataFile(shared, entry));
    for (const Box& box : messages.takeBoxes())
        EXPECT_EQ(box.style, 48);
    EXPECT_EQ(state(), before);
}

TEST_F(RegistryFiles, DeleteGoesByTheRowAsItIsNow)
{
    // Renamed by another copy since it was listed, its old name given to another file.
    const DataFileEntry listed = addWith(u"甲"_s, "data of the first");
    EXPECT_TRUE(ChangeDataFile(shared, listed, u"乙"_s, {}));
    messages.takeBoxes();
    addWith(u"甲"_s, "data of the second");
    removeAfterAsking(listed, true);
    EXPECT_EQ(messages.takeText(), u"乙 を削除しますか？"_s);
    EXPECT_EQ(contentOf(pathOf(u"甲"_s)), "data of the second");
    EXPECT_FALSE(QFile::exists(pathOf(u"乙"_s)));
}

TEST_F(RegistryFiles, ARowThatIsRenamedWhileTheUserThinksIsKept)
{
    // Answers yes after another copy has renamed the row.
    class SlowUser : public ScriptedMessages {
    public:
        std::function<void()> meanwhile;
        core::Answer show(core::MessageStyle style, const QString& text, const QString& title,
                          const QString& details, core::DefaultButton button) override
        {
            if (style == core::MessageStyle::ExclamationYesNo)
                meanwhile();
            return ScriptedMessages::show(style, text, title, details, button);
        }
    } user;
    const DataFileEntry entry = addWith(u"甲"_s, "data of 甲");
    core::Shared slow(user, clock);
    slow.programFolder = folder();
    user.meanwhile = [&] { renameRow(entry, u"丙"_s); };
    user.willAnswer(Answer::Yes);
    EXPECT_FALSE(DeleteDataFile(slow, entry));
    EXPECT_EQ(
        user.takeBoxes().last(),
        (Box{16,
             u"データ名が他で変更されています。一覧を確認してから、もう一度実行して下さい。"_s}));
    EXPECT_EQ(contentOf(pathOf(u"甲"_s)), "data of 甲");
    EXPECT_EQ(entries(DataKind::Customer).size(), 1);
    EXPECT_EQ(slow.MainConnection->errors().size(), 0);
}

TEST_F(RegistryFiles, TwoCopiesNeverGiveOneNameTwice)
{
    constexpr int Names = 15;
    core::CloseMainDatabase(shared); // nothing may be open where a child process starts
    const auto addAll = [this] {
        for (int i = 0; i < Names; ++i)
            AddDataFile(shared, DataKind::Customer, u"名"_s + QString::number(i), {});
        return takeErrors().isEmpty();
    };
    {
        ChildProcess one(addAll);
        ChildProcess two(addAll);
        EXPECT_TRUE(one.succeeded());
        EXPECT_TRUE(two.succeeded());
    }
    EXPECT_EQ(entries(DataKind::Customer).size(), Names);
    QSet<QString> names;
    for (const DataFileEntry& entry : entries(DataKind::Customer))
        names.insert(entry.name);
    EXPECT_EQ(names.size(), Names);
    EXPECT_EQ(state().files.size(), Names + 2); // and the templates
}
