#include "customer/data/customers.h"

#include "customer/data/customer_index.h"
#include "records/data/record_list.h"
#include "support/customer/data/customer_test.h"

using namespace Qt::StringLiterals;
using core::Answer;
using core::RecordKey;
using customer::customerTable;
using records::DeleteResult;
using records::FieldValues;
using records::Record;
using records::SaveResult;
using records::setField;

namespace {

using CustomersTest = OpenCustomerTest;

TEST_F(CustomersTest, NeitherReadingNorNameMayBeBlank)
{
    const RecordKey key = addNamed(u"元"_s, u"ﾓﾄ"_s).key;
    for (const QString& blank : {u"表示名ﾌﾘｶﾞﾅ"_s, u"表示名"_s}) {
        FieldValues fields = named(u"名"_s, u"ﾅﾏｴ"_s);
        setField(fields, blank, QString());
        EXPECT_EQ(refusalOf(customerTable(), fields, {})->column, blank);
        EXPECT_EQ(addRecord(file, customerTable(), {}, fields), SaveResult::Refused);
        EXPECT_EQ(changeRecord(file, customerTable(), key, fields, {}), SaveResult::Refused);
        const ScriptedMessages::Box box{16, u"表示ﾌﾘｶﾞﾅ・表示名は空白禁止です。"_s};
        EXPECT_EQ(messages.takeBoxes(), (QList<ScriptedMessages::Box>{box, box}));
    }
    EXPECT_EQ(column(u"SELECT 表示名 FROM ユーザー"_s), QStringList{u"元"_s});
}

TEST_F(CustomersTest, AnyTextIsKeptShownAndFoundAgain)
{
    const QStringList texts{
        u"O'Hara \"quoted\""_s,      u"100%_[a-z]!"_s,  u"一行目\r\n二行目\ttab"_s,  u"髙﨑𠮷"_s,
        u"😀👨‍👩‍👧"_s, u" 前後に空白 "_s, QString(10000, QChar(u'長'))};
    for (const QString& text : texts) {
        FieldValues fields = named(text, u"ﾅﾏｴ"_s);
        fields.append({u"備考"_s, text});
        const Record added = add(customerTable(), {}, fields);
        EXPECT_EQ(fresh(customerTable(), added.key).text(u"備考"), text);
        const auto list = openList(file, customer::customerList(), {}, {}, {});
        EXPECT_EQ(list->rows(0, 1).value(0).cells.value(0), text);
        messages.willAnswer(Answer::Yes);
        EXPECT_EQ(removeRecord(file, customerTable(), added.key), DeleteResult::Deleted);
        messages.takeBoxes();
    }
    for (const QString& text : {u"髙﨑𠮷"_s, u"😀"_s, u"二行目"_s}) {
        addNamed(u"前"_s + text + u"後"_s, u"ﾅﾏｴ"_s);
        const auto found =
            openList(file, customer::customerList(), customer::customersWithText(text), {}, {});
        EXPECT_EQ(found->total(), 1) << text.toStdString();
    }
}

TEST_F(CustomersTest, AnOwnerIsFoundByIdAndMark)
{
    const RecordKey key = addNamed(u"客"_s, u"ｷｬｸ"_s).key;
    EXPECT_EQ(customer::readOwner(file, key.id, 0)->key, key);
    EXPECT_FALSE(customer::readOwner(file, key.id, 1));
}

TEST_F(CustomersTest, TextForTheClipboardHasTheFilledFields)
{
    FieldValues fields = named(u"山田"_s, u"ﾅﾏｴ"_s);
    fields.append({u"自宅TEL"_s, u"03-1"_s});
    EXPECT_EQ(customer::customerText(add(customerTable(), {}, fields)),
              u"表示名ﾌﾘｶﾞﾅ： ﾅﾏｴ\r\n表示名： 山田\r\n自宅TEL： 03-1\r\n");
}

} // namespace
