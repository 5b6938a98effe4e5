#include "customer/screens/upkyotei.h"
#include "repair/screens/upcyotei.h"
#include "support/records/data/each_kind_test.h"
#include "support/records/screens/form_test.h"

#include <QDateEdit>
#include <QTimeEdit>

using namespace Qt::StringLiterals;
using core::Answer;

namespace {

// The schedule editor on either kind of file.
class UpyoteiTest : public FormTest<EachKindTest> {
protected:
    void openToAdd(QDate day)
    {
        if (isRepair())
            show(std::make_unique<repair::upcyotei>(repairs, drafts, day, nullptr));
        else
            show(std::make_unique<customer::upkyotei>(customers, drafts, day, nullptr));
    }
    // Opens the only entry there is, as a list shows it that was filled now.
    void openToChange()
    {
        const std::optional<records::KeptScheduleEntry> kept = records::readScheduleEntry(
            file, {valueOf(u"SELECT 予定更新ID FROM 予定"_s).toLongLong(), 0, 0, {}});
        ASSERT_TRUE(kept);
        if (isRepair())
            show(std::make_unique<repair::upcyotei>(repairs, drafts, *kept, nullptr));
        else
            show(std::make_unique<customer::upkyotei>(customers, drafts, *kept, nullptr));
    }
    QPlainTextEdit& text() { return control<QPlainTextEdit>(u"yotei1"_s); }
    QStringList stored()
    {
        return column(u"SELECT 日付 & ' ' & 時刻 & ' ' & 予定 FROM 予定 ORDER BY 予定ID"_s);
    }
};

TEST_P(UpyoteiTest, AddsOneEntryAfterTheOtherWithMidnightForNoTime)
{
    openToAdd(QDate(2024, 5, 1));
    EXPECT_EQ(form->windowTitle(), u"予定編集"_s);
    tick("chkrenzo");
    press("Command1");
    EXPECT_EQ(messages.takeBoxes(),
              (QList<ScriptedMessages::Box>{{16, u"予定は空白禁止です。"_s}}));
    EXPECT_TRUE(text().hasFocus());
    type(text(), u"O'Hara 様 100%"_s);
    press("Command1");
    EXPECT_EQ(text().toPlainText(), QString());
    control<QDateEdit>(u"DTPicker7"_s).setDate(QDate(1948, 2, 29));
    control<QTimeEdit>(u"DTPicker6"_s).setTime(QTime(9, 5));
    type(text(), u"棚卸"_s);
    press("Command1");
    press("Command3");
    EXPECT_EQ(
        stored(),
        (QStringList{u"2024/05/01(水) 00:00 O'Hara 様 100%"_s, u"1948/02/29(日) 09:05 棚卸"_s}));
    EXPECT_EQ(writes->size(), 2);
    EXPECT_EQ(valueOf(u"SELECT count(*) as ma1 FROM 予定 WHERE 予定ID = 予定更新ID AND "
                      u"予定識別ID = 0 AND 更新日時 is not null"_s),
              u"2"_s);
    EXPECT_EQ(valueOf(u"SELECT 予定 FROM 最新発番"_s), u"2"_s);
}

TEST_P(UpyoteiTest, EnterMovesOnButNotFromAConversion)
{
    openToAdd(QDate(2024, 5, 1));
    QTest::keyClick(&control<QDateEdit>(u"DTPicker7"_s), Qt::Key_Return);
    EXPECT_TRUE(control<QTimeEdit>(u"DTPicker6"_s).hasFocus());
    confirmConversion(text(), u"棚卸"_s);
    EXPECT_TRUE(text().hasFocus());
    QTest::keyClick(&text(), Qt::Key_Return);
    EXPECT_TRUE(control<QCheckBox>(u"chkrenzo"_s).hasFocus());
    EXPECT_EQ(text().toPlainText(), u"棚卸"_s);
    press("Command2");
    EXPECT_EQ(text().toPlainText(), QString());
}

TEST_P(UpyoteiTest, AsksBeforeItOverwritesWhatAnotherCopyWrote)
{
    const records::ScheduleEntry entry{{2024, 5, 1}, {9, 5}, u"棚卸\r\n二行目"_s};
    ASSERT_EQ(records::addScheduleEntry(file, entry), records::SaveResult::Saved);
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        openToChange();
        control<QTimeEdit>(u"DTPicker6"_s).setTime(QTime(10, 0));
        execute(u"UPDATE 予定 SET 更新日時 = #2024/05/01 08:00:00#"_s);
        messages.willAnswer(answer);
        press("Command1");
        const bool declined = answer == Answer::No;
        QList<ScriptedMessages::Box> expected{
            {52, u"すでにデータが更新されている可能性があります、このまま更新しますか？"_s}};
        if (declined)
            expected.append({64, u"リスト表示を更新して下さい"_s});
        EXPECT_EQ(messages.takeBoxes(), expected);
        EXPECT_EQ(stored(),
                  QStringList{u"2024/05/01(水) "_s + (declined ? u"09:05"_s : u"10:00"_s)
                              + u" 棚卸\r\n二行目"_s});
        drafts = {}; // what was not saved would be offered
    }
}

TEST_P(UpyoteiTest, DeletesAfterAskingAndSaysWhenItIsGone)
{
    ASSERT_EQ(records::addScheduleEntry(file, {{2024, 5, 1}, {}, u"棚卸"_s}), records::SaveResult::Saved);
    openToChange();
    messages.willAnswer(Answer::No);
    press("Command2");
    EXPECT_EQ(stored().size(), 1);
    messages.willAnswer(Answer::Yes);
    press("Command2");
    EXPECT_EQ(messages.takeBoxes(), (QList<ScriptedMessages::Box>(2, {52, u"削除しますか？"_s})));
    EXPECT_EQ(stored(), QStringList());
    EXPECT_FALSE(form->isVisible());

    ASSERT_EQ(records::addScheduleEntry(file, {{2024, 5, 1}, {}, u"棚卸"_s}), records::SaveResult::Saved);
    openToChange();
    execute(u"DELETE FROM 予定"_s);
    press("Command1");
    EXPECT_EQ(messages.takeBoxes(),
              (QList<ScriptedMessages::Box>{{48,
                                             u"データが削除されている為、更新できません。\r\n"
                                             u"リスト表示を更新して下さい。"_s}}));
    EXPECT_EQ(stored(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Kinds, UpyoteiTest, EachKind, kindName);

} // namespace
