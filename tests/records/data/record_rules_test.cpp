#include "customer/data/deliveries.h"
#include "customer/data/free_items.h"
#include "support/customer/data/customer_test.h"

using namespace Qt::StringLiterals;
using core::Answer;
using records::FieldValues;
using records::Record;
using records::RecordTable;
using records::SaveResult;
using records::setField;
using storage::ErrorKind;
using Box = ScriptedMessages::Box;

namespace {

class RecordRulesTest : public OpenCustomerTest {
protected:
    void SetUp() override
    {
        OpenCustomerTest::SetUp();
        owner = addNamed(u"客"_s, u"ｷｬｸ"_s);
    }
    Record owner;
};

// What another copy changed in the other fields stays, and Null stays Null.
TEST_F(RecordRulesTest, AChangeLeavesTheOtherFieldsAlone)
{
    FieldValues shown;
    for (const QString& column : customer::customerTexts())
        shown.append({column, owner.text(column)});
    change(customer::customerTable(), owner.key, {{u"自宅TEL"_s, u"03"_s}});
    FieldValues entered = shown;
    setField(entered, u"備考"_s, u"メモ"_s);
    messages.willAnswer(Answer::Yes);
    EXPECT_EQ(changeRecord(file, customer::customerTable(), owner.key, entered, shown),
              SaveResult::Saved);
    messages.takeBoxes();
    const Record after = fresh(customer::customerTable(), owner.key);
    EXPECT_EQ(after.text(u"自宅TEL"), u"03"_s);
    EXPECT_EQ(after.text(u"備考"), u"メモ"_s);
    EXPECT_TRUE(after.value(u"会社名").isNull());
}

// What a rule derives follows from the row as it will stand, not from what the form shows.
TEST_F(RecordRulesTest, ADerivedFieldFollowsTheRowAsItWillStand)
{
    const struct {
        QString before, byAnother, finished;
    } cases[] = {{u"続行"_s, u"完了"_s, u"2024/04/15(月)"_s}, {u"完了"_s, u"続行"_s, u""_s}};
    for (const auto& each : cases) {
        const FieldValues shown{{u"件名"_s, u"修繕"_s}, {u"判定"_s, each.before}};
        const Record ofCase = add(customer::caseTable(), {owner.key}, shown);
        change(customer::caseTable(), ofCase.key, {{u"判定"_s, each.byAnother}});
        FieldValues entered = shown;
        setField(entered, u"件名"_s, u"修繕と点検"_s);
        messages.willAnswer(Answer::Yes);
        Record after;
        EXPECT_EQ(changeRecord(file, customer::caseTable(), ofCase.key, entered, shown, &after),
                  SaveResult::Saved);
        messages.takeBoxes();
        EXPECT_EQ(after.text(u"判定"), each.byAnother);
        EXPECT_EQ(after.text(u"完了日"), each.finished);
    }
}

TEST_F(RecordRulesTest, ColumnsOfNumbersTakeNumbersOnly)
{
    RecordTable table = customer::deliveryTable();
    table.numbers = {{u"定価"_s}, {u"売値"_s, text::NumberForm::Decimal}};
    const Record kept =
        add(table, {owner.key}, {{u"定価"_s, u"１，２００"_s}, {u"売値"_s, u"+1.5"_s}});
    EXPECT_EQ(kept.text(u"定価"), u"1200"_s);
    EXPECT_EQ(kept.text(u"売値"), u"1.5"_s);
    const FieldValues shown{{u"定価"_s, u"1200"_s}, {u"売値"_s, u"不明"_s}}; // stored by another
    const struct {
        QString entered;
        SaveResult result;
    } cases[] = {{u"12a"_s, SaveResult::Refused},
                 {u""_s, SaveResult::Refused},
                 {u"1.5"_s, SaveResult::Refused},
                 {u"1,500"_s, SaveResult::Saved}};
    for (const auto& each : cases) {
        FieldValues entered = shown;
        setField(entered, u"定価"_s, each.entered);
        EXPECT_EQ(changeRecord(file, table, kept.key, entered, shown), each.result);
        const QList<Box> refused{{48, u"数字のみ入力して下さい。"_s}};
        EXPECT_EQ(messages.takeBoxes(), each.result == SaveResult::Saved ? QList<Box>() : refused);
    }
    EXPECT_EQ(valueOf(u"SELECT 定価 FROM 納品リスト"_s), u"1500"_s);
}

// A database without counters, as the application database is.
TEST_F(RecordRulesTest, ATableWithoutACounterNumbersItsRows)
{
    RecordTable table = customer::freeItemTable();
    table.numbering.counterColumn.clear();
    execute(u"UPDATE 最新発番 SET 自由項目名 = 55"_s);
    EXPECT_EQ(add(table, {}, {{u"項目名"_s, u"型"_s}}).key.id, 1);
    EXPECT_EQ(valueOf(u"SELECT 自由項目名 FROM 最新発番"_s), u"55"_s);
}

TEST_F(RecordRulesTest, ARecordThatCannotBeReadIsNotTakenForAVanishedOne)
{
    execute(u"DROP TABLE ユーザー"_s);
    EXPECT_EQ(changeRecord(file, customer::customerTable(), owner.key, named(u"後"_s, u"ｱ"_s), {}),
              SaveResult::Failed);
    EXPECT_EQ(addRecord(file, customer::caseTable(), {owner.key}, {{u"件名"_s, u"一"_s}}),
              SaveResult::Failed);
    EXPECT_FALSE(readOrTell(file, customer::customerTable(), owner.key));
    const QList<Box> boxes = messages.takeBoxes();
    EXPECT_EQ(boxes.size(), 3);
    for (const Box& box : boxes)
        EXPECT_EQ(box.style, 16) << box.text.toStdString();
    EXPECT_EQ(takeErrors(), (QList{ErrorKind::Name, ErrorKind::Name, ErrorKind::Name}));
}

} // namespace
