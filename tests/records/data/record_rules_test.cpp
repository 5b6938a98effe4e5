#include "customer/data/deliveries.h"
#include "customer/data/free_items.h"
#include "support/customer/data/customer_test.h"

#include <functional>

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

// A copy shows what its original held, which nobody typed.
TEST_F(RecordRulesTest, ANumberThatACopyBringsAlongIsNotJudged)
{
    RecordTable table = customer::deliveryTable();
    table.numbers = {{u"定価"_s}};
    const FieldValues shown{{u"品名"_s, u"棚"_s}, {u"定価"_s, u"時価"_s}};
    EXPECT_EQ(addRecord(file, table, {owner.key}, shown, nullptr, shown), SaveResult::Saved);
    EXPECT_EQ(valueOf(u"SELECT 定価 FROM 納品リスト"_s), u"時価"_s);
    EXPECT_EQ(addRecord(file, table, {owner.key}, shown), SaveResult::Refused);
    EXPECT_EQ(messages.takeText(), u"数字のみ入力して下さい。"_s);
}

TEST_F(RecordRulesTest, BlanksAloneAreNoName)
{
    for (const QString& blanks : {u""_s, u" "_s, u"　"_s, u" 　 "_s}) {
        EXPECT_EQ(addRecord(file, customer::customerTable(), {}, named(blanks, u"ｱ"_s)),
                  SaveResult::Refused);
        EXPECT_EQ(messages.takeText(), u"表示ﾌﾘｶﾞﾅ・表示名は空白禁止です。"_s);
    }
}

// A clock that goes on whenever somebody looks at it.
class RunningClock : public core::Clock {
public:
    QDateTime now() const override { return m_now = m_now.addSecs(1); }

private:
    mutable QDateTime m_now{QDate(2025, 4, 15), QTime(10, 0), Qt::UTC};
};

TEST_F(RecordRulesTest, WhatOneSaveStampsGetsOneMoment)
{
    const RunningClock running;
    records::Database timed{messages, running, file.connection};
    const auto second = [](const QString& moment) { return moment.left(19); };
    Record after;
    EXPECT_EQ(changeRecord(timed, customer::customerTable(), owner.key, named(u"後"_s, u"ｱ"_s), {},
                           &after),
              SaveResult::Saved);
    EXPECT_EQ(after.text(u"最近更新日時"), after.text(u"更新日時"));
    Record ofCase;
    EXPECT_EQ(addRecord(timed, customer::caseTable(), {owner.key}, {{u"件名"_s, u"一"_s}}, &ofCase),
              SaveResult::Saved);
    EXPECT_EQ(second(ofCase.text(u"最近更新日時")), second(ofCase.text(u"更新日時")));
    after = fresh(customer::customerTable(), owner.key);
    EXPECT_EQ(second(after.text(u"最近更新日時")), second(ofCase.text(u"更新日時")));
}

// Says yes to everything, but the row has gone when a question is answered.
class SlowAnswers : public ScriptedMessages {
public:
    std::function<void(const QString& question)> meanwhile;

    Answer show(core::MessageStyle style, const QString& text, const QString& title,
                const QString& details, core::DefaultButton button) override
    {
        if (style == core::MessageStyle::ExclamationYesNo)
            meanwhile(text);
        return ScriptedMessages::show(style, text, title, details, button);
    }
};

TEST_F(RecordRulesTest, ARowThatVanishesWhileAQuestionStandsIsToldAsVanished)
{
    const Box vanished{
        48, u"データが削除されている為、更新できません。\r\nリスト表示を更新して下さい。"_s};
    const QString changed =
        u"すでにデータが更新されている可能性があります、このまま更新しますか？"_s;
    const struct {
        bool removes;
        QString vanishesAt;
    } cases[] = {{false, changed}, {true, changed}, {true, u"削除しますか？"_s}};
    for (const auto& each : cases) {
        const Record row = addNamed(u"客"_s, u"ｷｬｸ"_s);
        change(customer::customerTable(), row.key, {{u"備考"_s, u"他"_s}});
        SlowAnswers slow;
        slow.meanwhile = [&](const QString& question) {
            slow.willAnswer(Answer::Yes);
            if (question == each.vanishesAt)
                execute(u"DELETE FROM ユーザー Where ユーザー更新ID ="_s
                        + QString::number(row.key.updateId));
        };
        records::Database asked{slow, clock, file.connection};
        if (each.removes) {
            EXPECT_EQ(removeRecord(asked, customer::customerTable(), row.key),
                      records::DeleteResult::Gone);
        } else {
            EXPECT_EQ(
                changeRecord(asked, customer::customerTable(), row.key, named(u"後"_s, u"ｱ"_s), {}),
                SaveResult::Gone);
        }
        const QList<Box> boxes = slow.takeBoxes();
        EXPECT_EQ(boxes.last(), vanished);
        for (const Box& box : boxes.first(boxes.size() - 1))
            EXPECT_EQ(box.noByDefault, each.removes) << box.text.toStdString();
    }
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
