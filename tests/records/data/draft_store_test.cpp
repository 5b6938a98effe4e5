#include "records/data/draft_store.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using records::Draft;
using records::DraftStore;

namespace {

const QString Form = u"upkenmei 1"_s;

class DraftStoreTest : public testing::Test {
protected:
    Draft draft(const QString& text) const
    {
        return {.form = Form, .subject = u"加藤"_s, .typed = moment, .edited = text, .whole = text};
    }
    void keep(DraftStore& store, const QString& file, const QString& text) const
    {
        Draft kept = draft(text);
        store.keep(file, &kept);
    }
    static QStringList texts(const DraftStore& store, const QString& file)
    {
        QStringList found;
        for (const Draft& each : store.drafts(file, Form))
            found.append(each.edited);
        return found;
    }
    // What a copy that starts now finds.
    QStringList found(const QString& file) const
    {
        DraftStore store(place);
        store.takeOver();
        return texts(store, file);
    }
    QStringList files() const { return QDir(place).entryList({u"*.mdb"_s}); }

    QTemporaryDir folder;
    const QString place = folder.filePath(u"state/corvane"_s);
    const QString shop = folder.filePath(u"本店.mdb"_s);
    const QString branch = folder.filePath(u"支店.mdb"_s);
    const QDateTime moment{QDate(2024, 4, 15), QTime(10, 30), Qt::UTC};
};

TEST_F(DraftStoreTest, KeepsAllOfADraftAndNoneOfItInTheClear)
{
    const QString typed = u"髙﨑𠮷\r\n😀 'a' \"b\" \\ \u0001"_s + QString(100'000, u'長');
    {
        DraftStore store(place);
        keep(store, shop, u"first"_s);
        Draft kept = draft(u"second"_s);
        store.keep(shop, &kept);
        kept.edited = typed;
        store.keep(shop, &kept); // takes the place of the former
    }
    QFile file(place + u"/下書き.mdb"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_FALSE(bytes.contains(u"髙﨑"_s.toUtf8()) || bytes.startsWith("SQLite"));
    EXPECT_EQ(QFile::permissions(place) & 0x0077, 0) << "the folder is the user's alone";

    DraftStore store(place);
    store.takeOver();
    EXPECT_EQ(texts(store, shop), QStringList({typed, u"first"_s}));
    EXPECT_EQ(texts(store, branch), QStringList());
    const Draft back = store.drafts(shop, Form).first();
    EXPECT_TRUE(back.holdsSameAs(draft(typed)) || back.whole == u"second"_s);
    EXPECT_EQ(back.typed, moment);
    store.dropAll(shop, Form);
    EXPECT_EQ(texts(store, shop), QStringList());
}

TEST_F(DraftStoreTest, NoCopyTakesWhatAnotherOneIsWorkingOn)
{
    auto first = std::make_unique<DraftStore>(place);
    keep(*first, shop, u"of the first"_s);
    DraftStore second(place);
    second.takeOver();
    EXPECT_EQ(texts(second, shop), QStringList());
    keep(second, shop, u"of the second"_s);
    EXPECT_EQ(files().size(), 2);

    first.reset(); // it has ended, its drafts are free
    second.takeOver();
    EXPECT_THAT(texts(second, shop),
                testing::UnorderedElementsAre(u"of the first"_s, u"of the second"_s));
    EXPECT_EQ(files().size(), 1);
}

TEST_F(DraftStoreTest, FollowsItsDataFile)
{
    {
        DraftStore store(place);
        keep(store, shop, u"typed"_s);
    }
    DraftStore(place).fileMoved(shop, branch); // one that had nothing open before
    EXPECT_EQ(found(shop), QStringList());
    EXPECT_EQ(found(branch), QStringList{u"typed"_s});
    DraftStore(place).fileMoved(branch, {});
    EXPECT_EQ(found(branch), QStringList());
}

TEST_F(DraftStoreTest, AFileThatIsNoneIsPassedOverAndLeftAlone)
{
    ASSERT_TRUE(QDir().mkpath(place));
    QFile broken(place + u"/下書き.mdb"_s);
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no data file");
    broken.close();
    {
        DraftStore store(place);
        keep(store, shop, u"typed"_s);
        EXPECT_TRUE(store.isWritten());
    }
    EXPECT_EQ(found(shop), QStringList{u"typed"_s});
    EXPECT_EQ(broken.size(), 12);
}

} // namespace
