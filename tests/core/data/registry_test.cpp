#include "core/data/registry.h"

#include "core/data/database_password.h"
#include "support/core/data/core_test.h"

#include <QDir>
#include <QFileInfo>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using core::AddDataFile;
using core::Answer;
using core::ChangeDataFile;
using core::DataFileEntry;
using core::DataKind;
using core::DeleteDataFile;
using testing::ElementsAre;
using testing::IsEmpty;
using Box = ScriptedMessages::Box;

namespace {

class Registry : public CoreTest {
protected:
    void SetUp() override { openFolder(); }

    QStringList names(std::optional<DataKind> kind)
    {
        QStringList all;
        const auto listed = core::ListDataFilesForOpen(shared, kind);
        EXPECT_TRUE(listed);
        for (const DataFileEntry& entry : listed.value_or(QList<DataFileEntry>()))
            all.append(entry.name);
        return all;
    }

    bool isThere(const QString& name) const { return QFileInfo::exists(file(name)); }
};

} // namespace

TEST_F(Registry, AddWritesTheRowAndCopiesTheTemplate)
{
    EXPECT_TRUE(AddDataFile(shared, DataKind::Customer, u"見本"_s, u"秘密"_s));
    EXPECT_THAT(messages.takeBoxes(),
                ElementsAre(Box{64,
                                u"データ名 『 見本 』 が追加されました。\r\n"
                                "パスワードは 『 秘密 』 です。"_s}));
    EXPECT_TRUE(AddDataFile(shared, DataKind::Repair, u"見本"_s, {})); // another kind's folder
    EXPECT_EQ(messages.takeText(),
              u"データ名 『 見本 』 が追加されました。\r\n"
              "パスワードは 『  』 です。"_s);
    EXPECT_THAT(registered(), ElementsAre(u"顧客管理|見本|秘密"_s, u"修理管理|見本|Null"_s));

    for (const QString& made : {u"Corvane/見本.mdb"_s, u"Care/見本.mdb"_s}) {
        storage::Connection opened;
        EXPECT_TRUE(opened.open(file(made), QString::fromUtf16(core::DatabasePassword)));
    }
}

TEST_F(Registry, AddNeverWritesOverWhatIsThere)
{
    add(DataKind::Customer, u"見本"_s);
    writeFile(u"Corvane/迷子.mdb"_s, "somebody's data");
    for (const QString& name : {u"見本"_s, u"迷子"_s}) {
        EXPECT_FALSE(AddDataFile(shared, DataKind::Customer, name, {}));
        EXPECT_THAT(messages.takeBoxes(), ElementsAre(Box{16, u"同じデータ名が存在します。"_s}));
    }
    EXPECT_THAT(registered(), ElementsAre(u"顧客管理|見本|Null"_s));
    EXPECT_EQ(QFileInfo(file(u"Corvane/迷子.mdb"_s)).size(), 15);
}

TEST_F(Registry, AMissingTemplateIsNotReported)
{
    QFile::remove(file(u"Care.mdb"_s));
    EXPECT_TRUE(AddDataFile(shared, DataKind::Repair, u"修理"_s, {}));
    EXPECT_EQ(messages.takeBoxes().size(), 1);
    EXPECT_THAT(registered(), ElementsAre(u"修理管理|修理|Null"_s));
}

TEST_F(Registry, ChangeRewritesTheRowAndMovesTheFile)
{
    const DataFileEntry entry = add(DataKind::Customer, u"旧"_s, u"p1"_s);
    EXPECT_TRUE(ChangeDataFile(shared, entry, u"新"_s, {}));
    EXPECT_THAT(messages.takeBoxes(),
                ElementsAre(Box{64,
                                u"データ名が 『 旧 』 から 『 新 』 に変更されました。\r\n"
                                "パスワードが 『 p1 』 から 『  』 に変更されました。"_s}));
    EXPECT_THAT(registered(), ElementsAre(u"顧客管理|新|Null"_s));
    EXPECT_FALSE(isThere(u"Corvane/旧.mdb"_s));
    EXPECT_TRUE(isThere(u"Corvane/新.mdb"_s));

    // With its name unchanged only the password is written.
    const DataFileEntry renamed = entries(DataKind::Customer).first();
    EXPECT_TRUE(ChangeDataFile(shared, renamed, u"新"_s, u"p2"_s));
    EXPECT_EQ(messages.takeBoxes().first().style, 64);
    EXPECT_THAT(registered(), ElementsAre(u"顧客管理|新|p2"_s));
}

TEST_F(Registry, AFailedRenameLeavesTheRowChanged)
{
    const DataFileEntry gone = add(DataKind::Customer, u"紛失"_s);
    QFile::remove(file(u"Corvane/紛失.mdb"_s));
    const DataFileEntry onto = add(DataKind::Customer, u"上書き"_s);
    writeFile(u"Corvane/先客.mdb"_s, "x");
    const DataFileEntry busy = add(DataKind::Customer, u"使用中"_s);
    storage::Connection user;
    ASSERT_TRUE(
        user.open(file(u"Corvane/使用中.mdb"_s), QString::fromUtf16(core::DatabasePassword)));

    // Under its new name the entry would lead to a file that is not its own.
    EXPECT_FALSE(ChangeDataFile(shared, onto, u"先客"_s, {}));
    EXPECT_THAT(messages.takeBoxes(), ElementsAre(Box{16, u"同じデータ名が存在します。"_s}));

    const std::pair<DataFileEntry, QString> changes[] = {{gone, u"発見"_s}, {busy, u"空き"_s}};
    for (const auto& [entry, name] : changes) {
        EXPECT_FALSE(ChangeDataFile(shared, entry, name, {}));
        EXPECT_THAT(messages.takeBoxes(), ElementsAre(Box{16, u"ﾌｧｲﾙが見つかりません。"_s}));
    }
    EXPECT_THAT(
        registered(),
        ElementsAre(u"顧客管理|発見|Null"_s, u"顧客管理|上書き|Null"_s, u"顧客管理|空き|Null"_s));
    EXPECT_EQ(QFileInfo(file(u"Corvane/先客.mdb"_s)).size(), 1);
    EXPECT_TRUE(isThere(u"Corvane/上書き.mdb"_s));
    EXPECT_TRUE(isThere(u"Corvane/使用中.mdb"_s));
}

TEST_F(Registry, DeleteAsksAndRemovesRowAndFile)
{
    const DataFileEntry kept = add(DataKind::Repair, u"残す"_s);
    const DataFileEntry entry = add(DataKind::Repair, u"消す"_s);
    const Box question{52, u"消す を削除しますか？"_s};

    messages.willAnswer(Answer::No);
    EXPECT_FALSE(DeleteDataFile(shared, entry));
    EXPECT_EQ(shared.DialogAnswer, u"7"_s);
    EXPECT_TRUE(isThere(u"Care/消す.mdb"_s));

    messages.willAnswer(Answer::Yes);
    EXPECT_TRUE(DeleteDataFile(shared, entry));
    EXPECT_EQ(shared.DialogAnswer, u"6"_s);
    EXPECT_THAT(messages.takeBoxes(), ElementsAre(question, question));
    EXPECT_FALSE(isThere(u"Care/消す.mdb"_s));
    EXPECT_EQ(entries(DataKind::Repair), QList{kept});

    // A file that is gone already does not keep the row.
    QFile::remove(file(u"Care/残す.mdb"_s));
    messages.willAnswer(Answer::Yes);
    EXPECT_TRUE(DeleteDataFile(shared, kept));
    messages.takeBoxes();
    EXPECT_THAT(registered(), IsEmpty());
}

TEST_F(Registry, ListsAreSortedByNameAndKeptApartByKind)
{
    for (const QString& name : {u"さくら"_s, u"ｱｻﾋ"_s, u"かもめ"_s})
        add(DataKind::Customer, name);
    add(DataKind::Repair, u"いろは"_s);
    EXPECT_THAT(names(DataKind::Customer), ElementsAre(u"ｱｻﾋ"_s, u"かもめ"_s, u"さくら"_s));
    EXPECT_THAT(names(DataKind::Repair), ElementsAre(u"いろは"_s));
    EXPECT_THAT(names(std::nullopt), ElementsAre(u"ｱｻﾋ"_s, u"いろは"_s, u"かもめ"_s, u"さくら"_s));
}
