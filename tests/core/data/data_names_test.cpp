#include "core/data/registry.h"

#include "support/core/data/core_test.h"

#include <QFile>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using core::AddDataFile;
using core::Answer;
using core::ChangeDataFile;
using core::DataFileEntry;
using core::DataKind;
using testing::ElementsAre;
using testing::IsEmpty;
using Box = ScriptedMessages::Box;

namespace {

class DataNames : public CoreTest {
protected:
    void SetUp() override { openFolder(); }

    // A row with a name that it could not get today, with its file.
    DataFileEntry addOld(const QString& name)
    {
        const DataFileEntry entry = add(DataKind::Customer, u"仮"_s);
        execute(u"UPDATE main SET ﾃﾞｰﾀ = '"_s + name + u"' WHERE [No] = "_s
                + QString::number(entry.number));
        EXPECT_TRUE(QFile::rename(file(u"Corvane/仮.mdb"_s), pathOf(name)));
        for (const DataFileEntry& each : entries(DataKind::Customer)) {
            if (each.number == entry.number)
                return each;
        }
        return {};
    }
};

const QString characters =
    u"データ名に「\\」「/」「:」「*」「?」「\"」「<」「>」「|」や改行、タブは使えません。"_s;
const QString taken = u"同じデータ名が存在します。"_s;

} // namespace

TEST_F(DataNames, ThatNoFileSystemCanHoldAreRefusedBeforeAnythingIsWritten)
{
    std::vector<std::pair<QString, QString>> refused = {
        {u""_s, u"データ名は空白禁止です。"_s},
        {u"..\\main"_s, characters},
        {u"a\nb"_s, characters},
        {u".."_s, u"「..」はデータ名に使えません。"_s},
        {u"最適化"_s, u"「最適化」はデータ名に使えません。"_s},
        {u"　"_s, u"データ名の前後に空白は使えません。"_s},
        {u"甲 "_s, u"データ名の前後に空白は使えません。"_s},
        {u"有限会社."_s, u"データ名の最後に「.」は使えません。"_s},
        {QString(82, u'長'), u"データ名が長すぎます。全角で８１文字以内にして下さい。"_s},
        {QString(QChar(0xD83D)), u"ファイル名に使えない文字がデータ名に含まれています。"_s},
    };
    for (const QChar c : u"\\/:*?\"<>|"_s)
        refused.emplace_back(u"見"_s + c + u"本"_s, characters);
    for (const QString& device :
         {u"CON"_s, u"nul"_s, u"Aux.2024"_s, u"COM1"_s, u"lpt²"_s, u"prn .x"_s, u"conin$"_s})
        refused.emplace_back(
            device, u"「"_s + device + u"」は装置の名前になる為、データ名に使えません。"_s);
    for (const auto& [name, message] : refused) {
        EXPECT_FALSE(AddDataFile(shared, DataKind::Customer, name, {}));
        EXPECT_THAT(messages.takeBoxes(), ElementsAre(Box{16, message}));
    }
    EXPECT_THAT(registered(), IsEmpty());
    EXPECT_FALSE(QFile::exists(file(u"Corvane"_s)));

    const DataFileEntry entry = add(DataKind::Customer, QString(81, u'長')); // just fits
    for (const auto& [name, message] : refused) {
        EXPECT_FALSE(ChangeDataFile(shared, entry, name, u"p"_s));
        EXPECT_EQ(messages.takeText(), message);
    }
    EXPECT_EQ(entries(DataKind::Customer), QList{entry});
    EXPECT_TRUE(QFile::exists(pathOf(entry.name)));
}

TEST_F(DataNames, ThatLookDangerousAndAreNotAreTaken)
{
    const QString good[] = {u"COM10"_s,  u"console"_s, u"a.b"_s,          u".隠れ"_s,
                            u"O'Neil"_s, u"％_[甲]"_s, u"50%引き（仮）"_s};
    for (const QString& name : good) {
        add(DataKind::Customer, name);
        EXPECT_TRUE(QFile::exists(pathOf(name))) << name.toStdString();
    }
}

TEST_F(DataNames, OfOldStillOpenAndKeepTheirName)
{
    for (const QString& name : {u"a:b"_s, u"甲\\乙"_s, u"CON"_s, u"終わり."_s, u"最適化"_s}) {
        SCOPED_TRACE(name.toStdString());
        const DataFileEntry entry = addOld(name);
        EXPECT_EQ(core::dataFile(folder(), DataKind::Customer, entry.name), pathOf(name));
        EXPECT_TRUE(ChangeDataFile(shared, entry, name, u"鍵"_s));
        EXPECT_FALSE(ChangeDataFile(shared, entry, u"b:c"_s, u"別"_s));
        EXPECT_EQ(messages.takeBoxes().last(), (Box{16, characters}));
        EXPECT_THAT(registered(), ElementsAre(u"顧客管理|"_s + name + u"|鍵"_s));

        EXPECT_TRUE(ChangeDataFile(shared, entry, u"新"_s, {}));
        EXPECT_TRUE(QFile::exists(pathOf(u"新"_s)));
        EXPECT_TRUE(ChangeDataFile(shared, entries(DataKind::Customer).first(), u"消"_s, {}));
        execute(u"DELETE FROM main WHERE ﾃﾞｰﾀ = '消'"_s);
        messages.takeBoxes();
        const DataFileEntry again = addOld(name);
        messages.willAnswer(Answer::Yes);
        EXPECT_TRUE(DeleteDataFile(shared, again));
        EXPECT_EQ(messages.takeText(), name + u" を削除しますか？"_s);
        EXPECT_FALSE(QFile::exists(pathOf(name)));
        EXPECT_TRUE(QFile::remove(pathOf(u"消"_s)));
    }
}

TEST_F(DataNames, AreNotToldApartByLetterCaseAlone)
{
    const DataFileEntry entry = add(DataKind::Customer, u"Shop が"_s);
    for (const QString& name : {u"SHOP が"_s, u"shop か\u3099"_s}) { // the mark stands apart
        EXPECT_FALSE(AddDataFile(shared, DataKind::Customer, name, {}));
        EXPECT_EQ(messages.takeText(), taken);
    }
    add(DataKind::Customer, u"ｓｈｏｐ　が"_s); // width tells files apart everywhere
    const DataFileEntry other = add(DataKind::Customer, u"別"_s);
    EXPECT_FALSE(ChangeDataFile(shared, other, u"shop が"_s, {}));
    EXPECT_EQ(messages.takeText(), taken);
    add(DataKind::Repair, u"SHOP が"_s);

    // Its own name may change its letter case.
    EXPECT_TRUE(ChangeDataFile(shared, entry, u"SHOP が"_s, {}));
    messages.takeBoxes();
    EXPECT_TRUE(QFile::exists(pathOf(u"SHOP が"_s)));
}

TEST_F(DataNames, AFileOfTheFoldersNameIsTold)
{
    writeFile(u"Corvane"_s, "the program, on a stick that ignores letter case");
    EXPECT_FALSE(AddDataFile(shared, DataKind::Customer, u"見本"_s, {}));
    EXPECT_EQ(messages.takeText(),
              u"フォルダー 『 "_s + file(u"Corvane"_s)
                  + u" 』 を作成できません。同じ名前のファイルがあります。"_s);
    EXPECT_THAT(registered(), IsEmpty());
}
