#include "records/screens/edit_form.h"

#include "support/customer/screens/all_forms_test.h"
#include "support/ui/composed_enter.h"

using core::Answer;

namespace {

const QString DraftQuestion =
    u"前回、保存されずに閉じた入力があります。\r\n続きから入力しますか？\r\n\r\n対象： "_s;
const QString ChangedQuestion =
    u"すでにデータが更新されている可能性があります、このまま更新しますか？"_s;

TEST_F(EditFormTableTest, SaysByItsButtonsWhatItDoesAndWritesWhatWasEdited)
{
    for (const Form& each : forms()) {
        SCOPED_TRACE(each.name);
        const int before = rows(each);
        each.add();
        EXPECT_EQ(form->windowTitle(), u"追加"_s);
        EXPECT_EQ(caption("Command1") + caption("Command2"), u"追　加初期化"_s);
        text(each).setPlainText(u"一\n二"_s);
        press("Command2");
        EXPECT_EQ(text(each).toPlainText(), QString());
        tick("chkrenzo");
        for (int i = 1; i <= 2; ++i) {
            fillRequired();
            text(each).setPlainText(u"一\n二"_s);
            press("Command1");
            EXPECT_TRUE(form->isVisible());
            EXPECT_EQ(text(each).toPlainText(), QString());
            EXPECT_EQ(rows(each), before + i);
            EXPECT_EQ(form->savedRecord()->text(each.column), u"一\r\n二"_s);
        }
        press("Command3");
        EXPECT_EQ(writes->size(), 2);

        // Line ends and other texts that were not edited stay as they came.
        each.change();
        EXPECT_EQ(form->windowTitle(), u"編集"_s);
        EXPECT_EQ(caption("Command1") + caption("Command2"), u"更　新削　除"_s);
        EXPECT_FALSE(control<QCheckBox>(u"chkrenzo"_s).isVisible());
        text(each).setPlainText(u"三"_s);
        press("Command1");
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(stored(each), u"三"_s);
        writeFields(file, each.table, fresh(each.table, each.key).key, {{each.column, u"a\nb"_s}});
        each.change();
        press("Command1");
        EXPECT_EQ(stored(each), u"a\nb"_s);
    }
    EXPECT_TRUE(messages.takeBoxes().isEmpty()) << "nothing was to be asked";
}

TEST_F(EditFormTableTest, WhatWasDeclinedIsOfferedOnceWhenTheRecordIsOpenedNext)
{
    for (const Form& each : forms()) {
        SCOPED_TRACE(each.name);
        each.change();
        text(each).setPlainText(u"typed"_s);
        changeElsewhere(each);
        messages.willAnswer(Answer::No);
        press("Command1");
        EXPECT_EQ(messages.takeBoxes(),
                  QList<ScriptedMessages::Box>(
                      {{52, ChangedQuestion}, {64, u"リスト表示を更新して下さい"_s}}));
        EXPECT_FALSE(form->isVisible());
        EXPECT_NE(stored(each), u"typed"_s);

        messages.willAnswer(Answer::Yes);
        each.change();
        EXPECT_TRUE(messages.takeText().startsWith(DraftQuestion));
        EXPECT_EQ(text(each).toPlainText(), u"typed"_s);
        press("Command1");
        EXPECT_EQ(stored(each), u"typed"_s);
        each.change(); // saved: nothing is offered any more
        press("Command3");

        // Changed elsewhere, and overwritten all the same.
        each.change();
        text(each).setPlainText(u"mine"_s);
        changeElsewhere(each);
        messages.willAnswer(Answer::Yes);
        press("Command1");
        EXPECT_EQ(messages.takeText(), ChangedQuestion);
        EXPECT_EQ(stored(each), u"mine"_s);
    }
}

TEST_F(EditFormTableTest, WhatWasTypedIsOfferedForItsOwnRecordAlone)
{
    const core::RecordKey another = addNamed(u"木村"_s, u"ｷﾑﾗ"_s).key;
    const Form customer = forms().first();
    customer.change();
    text(customer).setPlainText(u"typed"_s);
    press("Command3");
    edit<customer::upkokyaku>(customer.table, another);
    EXPECT_EQ(text(customer).toPlainText(), QString());
    press("Command3");
    customer.add();
    EXPECT_EQ(text(customer).toPlainText(), QString());
    press("Command2");
    press("Command3");
    EXPECT_TRUE(messages.takeBoxes().isEmpty());
    messages.willAnswer(Answer::Yes);
    customer.change();
    EXPECT_TRUE(messages.takeText().startsWith(DraftQuestion));
    EXPECT_EQ(text(customer).toPlainText(), u"typed"_s);
}

TEST_F(EditFormTableTest, WhatWasTypedForARecordThatIsGoneIsOfferedForTheNextNewOne)
{
    const QList<Form> all = forms();
    for (auto each = all.crbegin(); each != all.crend(); ++each) {
        SCOPED_TRACE(each->name);
        each->change();
        text(*each).setPlainText(u"typed"_s);
        deleteElsewhere(each->table, each->key);
        press("Command1");
        EXPECT_EQ(messages.takeBoxes().value(0).style, 48);
        EXPECT_FALSE(form->isVisible());
        messages.willAnswer(Answer::Yes);
        each->add();
        EXPECT_TRUE(messages.takeText().startsWith(DraftQuestion));
        EXPECT_EQ(text(*each).toPlainText(), u"typed"_s);
        press("Command2");
        press("Command3");
    }
}

TEST_F(EditFormTableTest, NothingIsAddedToAParentThatIsGoneAndTheTextStays)
{
    const QList<Form> all = forms();
    for (const int place : {2, 1}) { // the log entry's case first
        const Form& each = all.at(place);
        SCOPED_TRACE(each.name);
        const int before = rows(each);
        each.add();
        text(each).setPlainText(u"typed"_s);
        deleteElsewhere(all.at(place - 1).table, each.parents.first());
        press("Command1");
        EXPECT_EQ(messages.takeText(), u"追加しようしているデータ元がみつかりません。"_s);
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(text(each).toPlainText(), u"typed"_s);
        EXPECT_EQ(rows(each), before);
        press("Command2");
        press("Command3");
    }
}

TEST_F(EditFormTableTest, DeletesAfterAsking)
{
    const QList<Form> all = forms();
    for (auto each = all.crbegin(); each != all.crend(); ++each) {
        SCOPED_TRACE(each->name);
        const int before = rows(*each);
        each->change();
        messages.willAnswer(Answer::No);
        press("Command2");
        EXPECT_TRUE(form->isVisible());
        messages.willAnswer(Answer::Yes);
        press("Command2");
        const QList<ScriptedMessages::Box> asked = messages.takeBoxes();
        EXPECT_EQ(asked, QList<ScriptedMessages::Box>(2, {52, u"削除しますか？"_s}));
        EXPECT_TRUE(asked.at(0).noByDefault);
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(rows(*each), before - 1);
    }
}

TEST_F(EditFormTableTest, EnterThatConfirmsAConversionStaysInItsField)
{
    const QStringList before = everything();
    for (const Form& each : forms()) {
        SCOPED_TRACE(each.name);
        each.change();
        EXPECT_EQ(expectConversionsStayInTheirFields(*form), each.textFields);
        EXPECT_EQ(writes->size(), 0);
        drafts = {};
    }
    EXPECT_EQ(everything(), before);
}

} // namespace
