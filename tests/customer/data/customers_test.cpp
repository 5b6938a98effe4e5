#include "customer/data/customers.h"

#include "customer/data/customer_index.h"
#include "customer/data/customer_list.h"
#include "storage/transaction.h"
#include "support/customer/data/customer_test.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using core::Answer;
using records::DeleteResult;
using core::RecordKey;
using records::SaveResult;
using customer::CustomerFields;
using storage::ErrorKind;

namespace {

const QString ChangedQuestion =
    u"すでにデータが更新されている可能性があります、このまま更新しますか？"_s;
const QString GoneText =
    u"データが削除されている為、更新できません。\r\nリスト表示を更新して下さい。"_s;

class CustomersTest : public OpenCustomerTest {
protected:
    using Box = ScriptedMessages::Box;

    CustomerFields named(const QString& name)
    {
        CustomerFields fields;
        fields.texts[customer::DisplayReading] = u"ﾅﾏｴ"_s;
        fields.texts[customer::DisplayName] = name;
        return fields;
    }
};

TEST_F(CustomersTest, NeitherReadingNorNameMayBeBlank)
{
    const RecordKey key = addNamed(u"元"_s, u"ﾓﾄ"_s).key;
    for (const int blank : {customer::DisplayReading, customer::DisplayName}) {
        CustomerFields fields = named(u"名"_s);
        fields.texts[static_cast<std::size_t>(blank)].clear();
        EXPECT_EQ(addCustomer(file, fields), SaveResult::Refused);
        EXPECT_EQ(changeCustomer(file, key, fields), SaveResult::Refused);
        const Box box{16, u"表示ﾌﾘｶﾞﾅ・表示名は空白禁止です。"_s};
        EXPECT_EQ(messages.takeBoxes(), (QList<Box>{box, box}));
    }
    EXPECT_EQ(column(u"SELECT 表示名 FROM ユーザー"_s), QStringList{u"元"_s});
}

TEST_F(CustomersTest, AddedRowIsNumberedAndStamped)
{
    RecordKey key;
    CustomerFields fields;
    for (std::size_t i = 0; i < customer::CustomerFieldCount; ++i)
        fields.texts[i] = u"欄"_s + QString::number(i);
    fields.print = true;
    EXPECT_EQ(addCustomer(file, fields, &key), SaveResult::Saved);
    const customer::KeptCustomer kept = fresh(key);
    EXPECT_EQ(kept.fields, fields);
    EXPECT_EQ(kept.key, key);
    EXPECT_EQ(key.id, key.updateId);
    EXPECT_EQ(key.mark, 0);
    EXPECT_EQ(valueOf(u"SELECT 最近更新日時 FROM ユーザー"_s), u"2024/04/15 10:30:00.000");
    EXPECT_EQ(valueOf(u"SELECT ユーザー FROM 最新発番"_s).toLongLong(), key.id);
    EXPECT_EQ(customer::readOwner(file, key.id, 0)->key, key);
    EXPECT_FALSE(customer::readOwner(file, key.id, 1));
}

TEST_F(CustomersTest, AnyTextIsKeptShownAndFoundAgain)
{
    const QStringList texts{
        u"O'Hara \"quoted\""_s,      u"100%_[a-z]!"_s,  u"一行目\r\n二行目\ttab"_s,  u"髙﨑𠮷"_s,
        u"😀👨‍👩‍👧"_s, u" 前後に空白 "_s, QString(10000, QChar(u'長'))};
    for (const QString& text : texts) {
        RecordKey key;
        CustomerFields fields = named(text);
        fields.texts[customer::Notes] = text;
        ASSERT_EQ(addCustomer(file, fields, &key), SaveResult::Saved);
        EXPECT_EQ(fresh(key).fields, fields);
        const auto list = openCustomerList(file, {}, {}, {});
        EXPECT_EQ(list->rows(0, 1).value(0).cells.value(0), text);
        messages.willAnswer(Answer::Yes);
        EXPECT_EQ(deleteCustomer(file, key), DeleteResult::Deleted);
        EXPECT_EQ(messages.takeText(), u"削除しますか？");
    }
    for (const QString& text : {u"髙﨑𠮷"_s, u"😀"_s, u"二行目"_s}) {
        EXPECT_EQ(addCustomer(file, named(u"前"_s + text + u"後"_s)), SaveResult::Saved);
        const auto found = openCustomerList(file, customer::customersWithText(text), {}, {});
        EXPECT_EQ(found->total(), 1) << text.toStdString();
    }
}

// Both copies read the row in the same millisecond; the first save is noticed all the same, also
// when the clock was set back meanwhile.
TEST_F(CustomersTest, AChangeByAnotherCopyIsNoticed)
{
    OtherCopy other(path());
    for (const bool setBack : {false, true}) {
        const RecordKey key = addNamed(u"元"_s, u"ﾓﾄ"_s).key;
        if (setBack)
            other.clock.set(QDate(2001, 1, 1));
        EXPECT_EQ(changeCustomer(other.file, key, named(u"先"_s)), SaveResult::Saved);

        messages.willAnswer(Answer::No);
        EXPECT_EQ(changeCustomer(file, key, named(u"後"_s)), SaveResult::Declined);
        EXPECT_EQ(messages.takeBoxes(),
                  (QList<Box>{{52, ChangedQuestion}, {64, u"リスト表示を更新して下さい"_s}}));
        EXPECT_EQ(fresh(key).fields, named(u"先"_s));

        messages.willAnswer(Answer::Yes); // the delete
        messages.willAnswer(Answer::No);
        EXPECT_EQ(deleteCustomer(file, key), DeleteResult::Declined);
        EXPECT_EQ(messages.takeBoxes().size(), 3);

        messages.willAnswer(Answer::Yes);
        EXPECT_EQ(changeCustomer(file, key, named(u"後"_s)), SaveResult::Saved);
        EXPECT_EQ(messages.takeText(), ChangedQuestion);
        EXPECT_EQ(fresh(key).fields, named(u"後"_s));

        messages.willAnswer(Answer::Yes);
        EXPECT_EQ(deleteCustomer(file, fresh(key).key), DeleteResult::Deleted);
        messages.takeBoxes();
    }
    EXPECT_TRUE(other.file.connection.errors().isEmpty());
}

TEST_F(CustomersTest, AVanishedRowIsTold)
{
    const RecordKey key = addNamed(u"元"_s, u"ﾓﾄ"_s).key;
    execute(u"DELETE FROM ユーザー"_s);
    EXPECT_EQ(changeCustomer(file, key, named(u"後"_s)), SaveResult::Gone);
    EXPECT_EQ(setCustomerPrint(file, key, true), SaveResult::Gone);
    EXPECT_EQ(messages.takeBoxes(), (QList<Box>{{48, GoneText}, {48, GoneText}}));
    messages.willAnswer(Answer::Yes);
    EXPECT_EQ(deleteCustomer(file, key), DeleteResult::Gone);
    EXPECT_EQ(messages.takeBoxes(), (QList<Box>{{52, u"削除しますか？"_s}, {48, GoneText}}));
    EXPECT_FALSE(customer::readCustomer(file, key));
}

TEST_F(CustomersTest, KeptWhenTheUserSaysNo)
{
    const RecordKey key = addNamed(u"元"_s, u"ﾓﾄ"_s).key;
    messages.willAnswer(Answer::No);
    EXPECT_EQ(deleteCustomer(file, key), DeleteResult::Kept);
    EXPECT_EQ(messages.takeBoxes(), (QList<Box>{{52, u"削除しますか？"_s}}));
    EXPECT_EQ(fresh(key).key, key);
}

// One's own save gives the list a fresh key, with which the next one asks nothing.
TEST_F(CustomersTest, SavingWithFreshKeysNeverAsks)
{
    RecordKey key = addNamed(u"元"_s, u"ﾓﾄ"_s).key;
    for (const QString& name : {u"一"_s, u"二"_s, u"三"_s}) {
        EXPECT_EQ(changeCustomer(file, key, named(name)), SaveResult::Saved);
        const QString before = key.stamp;
        key = fresh(key).key;
        EXPECT_GT(key.stamp, before);
        EXPECT_EQ(setCustomerPrint(file, key, name == u"二"), SaveResult::Saved);
        key = fresh(key).key;
        EXPECT_EQ(fresh(key).fields.print, name == u"二");
    }
}

TEST_F(CustomersTest, ARefusalOfTheEngineIsToldAndWritesNothing)
{
    const RecordKey key = addNamed(u"元"_s, u"ﾓﾄ"_s).key;
    execute(u"DROP TABLE 最新発番"_s); // the row can be written, its number cannot
    EXPECT_EQ(addCustomer(file, named(u"新"_s)), SaveResult::Failed);
    EXPECT_TRUE(messages.takeText().startsWith(u"保存できませんでした。\r\n"));
    EXPECT_EQ(column(u"SELECT 表示名 FROM ユーザー"_s), QStringList{u"元"_s});

    execute(u"DROP TABLE 項目内容"_s); // the last of the cascade
    messages.willAnswer(Answer::Yes);
    EXPECT_EQ(deleteCustomer(file, key), DeleteResult::Failed);
    EXPECT_TRUE(messages.takeBoxes().value(1).text.startsWith(u"削除できませんでした。\r\n"));
    EXPECT_EQ(fresh(key).key, key);
    EXPECT_EQ(takeErrors(), (QList{ErrorKind::Name, ErrorKind::Name}));
}

TEST_F(CustomersTest, TextForTheClipboardHasTheFilledFields)
{
    CustomerFields fields = named(u"山田"_s);
    fields.texts[customer::HomePhone] = u"03-1"_s;
    EXPECT_EQ(customerText(fields), u"表示名ﾌﾘｶﾞﾅ： ﾅﾏｴ\r\n表示名： 山田\r\n自宅TEL： 03-1\r\n");
}

} // namespace
