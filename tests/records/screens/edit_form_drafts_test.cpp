#include "records/screens/draft_name.h"
#include "records/screens/status_line.h"
#include "support/customer/screens/all_forms_test.h"

#include <QTemporaryDir>

using core::Answer;

namespace {

// What a form does for what was typed into it and is not saved.
class EditFormDraftsTest : public EditFormTableTest {
protected:
    records::Desk withStatus()
    {
        records::Desk of = desk();
        of.status = &status;
        return of;
    }
    customer::upkenmei& openCase(records::Opening::Mode mode)
    {
        const bool adding = mode == records::Opening::Mode::Add;
        std::optional<records::Record> record;
        if (!adding)
            record = records::readRecord(file, customer::caseTable(), ofCase);
        const QList<core::RecordKey> parents = adding ? QList{owner} : QList<core::RecordKey>();
        return show(std::make_unique<customer::upkenmei>(
            withStatus(), records::Opening{mode, u"件名情報を編集"_s, parents, record}, nullptr));
    }
    customer::upkenmei& newCase() { return openCase(records::Opening::Mode::Add); }
    QLineEdit& title() { return control<QLineEdit>(u"kenmei1"_s); }
    QPlainTextEdit& notes() { return control<QPlainTextEdit>(u"kenmei2"_s); }
    void keepTyped(const QString& text)
    {
        newCase();
        title().setText(text);
        form->close();
    }

    // What the drafts of a new case are kept under.
    static QString newCaseOf(const core::RecordKey& customer)
    {
        return records::draftName(u"upkenmei"_s, {records::Opening::Mode::Add, {}, {customer}});
    }

    records::StatusLine status;
};

TEST_F(EditFormDraftsTest, TheQuestionSaysWhoseAndWhenAndCanBePutOff)
{
    openCase(records::Opening::Mode::Change);
    notes().setPlainText(u"typed"_s);
    form->close();
    EXPECT_EQ(status.text(), u"保存していない入力を残しました。次に開いた時に続けられます。"_s);
    clock.set(QDate(2024, 5, 1));

    for (int i = 0; i < 2; ++i) { // put off, it comes again
        messages.willAnswer(Answer::Cancel);
        openCase(records::Opening::Mode::Change);
        EXPECT_EQ(notes().toPlainText(), QString());
        form->close();
        const QList<ScriptedMessages::Box> boxes = messages.takeBoxes();
        ASSERT_EQ(boxes.size(), 1);
        EXPECT_EQ(boxes.first().style, 67);
        EXPECT_TRUE(boxes.first().text.contains(
            u"対象： 件名情報を編集 「点検」\r\n入力： 2024/04/15(月) 10:30"_s));
    }
    messages.willAnswer(Answer::No);
    openCase(records::Opening::Mode::Change);
    form->close();
    openCase(records::Opening::Mode::Change);
    EXPECT_EQ(messages.takeBoxes().size(), 1) << "what was declined is not offered again";
}

TEST_F(EditFormDraftsTest, WhatWasPutOffAndWhatWasTypedSinceAreBothOffered)
{
    keepTyped(u"一"_s);
    messages.willAnswer(Answer::Cancel);
    keepTyped(u"二"_s);
    messages.willAnswer(Answer::No); // the one typed last comes first
    messages.willAnswer(Answer::Yes);
    newCase();
    const QList<ScriptedMessages::Box> boxes = messages.takeBoxes();
    ASSERT_EQ(boxes.size(), 3);
    EXPECT_TRUE(boxes.at(1).text.contains(u"（新規） 「二」"_s));
    EXPECT_EQ(title().text(), u"一"_s);
    press("Command1");
    newCase();
    EXPECT_TRUE(messages.takeBoxes().isEmpty());
}

TEST_F(EditFormDraftsTest, AFolderThatCannotBeWrittenIsToldOnceAndNothingIsLost)
{
    const QTemporaryDir folder;
    QFile inTheWay(folder.filePath(u"控え"_s));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    drafts = {std::make_shared<records::DraftStore>(inTheWay.fileName()), path()};
    keepTyped(u"一"_s);
    EXPECT_TRUE(status.text().startsWith(u"入力途中の控えをファイルに残せません。 "_s));
    messages.willAnswer(Answer::Cancel);
    keepTyped(u"二"_s);
    EXPECT_TRUE(status.text().endsWith(u"プログラムを終了するまでは続けられます。"_s));

    ASSERT_TRUE(inTheWay.remove());
    messages.willAnswer(Answer::Cancel);
    keepTyped(u"三"_s);
    drafts = {};
    records::DraftStore next(inTheWay.fileName());
    next.takeOver();
    EXPECT_EQ(next.drafts(path(), newCaseOf(owner)).size(), 3);
    messages.takeBoxes();
}

// What it belonged to was deleted by somebody else while no form was open.
TEST_F(EditFormDraftsTest, WhatWasTypedForACustomerWhoIsGoneIsOfferedForAnother)
{
    keepTyped(u"一"_s);
    deleteElsewhere(customer::customerTable(), owner);
    owner = addNamed(u"木村"_s, u"ｷﾑﾗ"_s).key;
    messages.willAnswer(Answer::Yes);
    newCase();
    EXPECT_EQ(messages.takeBoxes().size(), 1);
    EXPECT_EQ(title().text(), u"一"_s);
}

// Killed between the save and the removal of the draft.
TEST_F(EditFormDraftsTest, WhatStandsInTheRecordAlreadyIsNotOffered)
{
    openCase(records::Opening::Mode::Change);
    notes().setPlainText(u"typed"_s);
    form->close();
    change(customer::caseTable(), ofCase, {{u"備考"_s, u"typed"_s}});
    openCase(records::Opening::Mode::Change);
    EXPECT_TRUE(messages.takeBoxes().isEmpty());
    EXPECT_TRUE(drafts.forms().isEmpty());
}

TEST_F(EditFormDraftsTest, FieldsThatWereEmptiedComeBackByCtrlZ)
{
    newCase();
    title().setText(u"件"_s);
    notes().setPlainText(u"一\n二"_s);
    tick("chkYotei");
    press("Command2");
    EXPECT_EQ(title().text() + notes().toPlainText(), QString());
    QTest::keyClicks(&title(), u"x"_s); // what was typed since stays
    QTest::keyClick(&notes(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(title().text(), u"x"_s);
    EXPECT_EQ(notes().toPlainText(), u"一\n二"_s);
    EXPECT_TRUE(control<QCheckBox>(u"chkYotei"_s).isChecked());
    press("Command1");
    EXPECT_EQ(valueOf(u"SELECT 備考 FROM 件名 WHERE 件名 = 'x'"_s), u"一\r\n二"_s);
}

} // namespace
