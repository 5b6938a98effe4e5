#include "customer/screens/upkokyaku.h"

#include "support/customer/screens/edit_form_test.h"

using namespace Qt::StringLiterals;
using customer::CustomerFields;
using customer::upkokyaku;

namespace {

const QString Blank = u"表示ﾌﾘｶﾞﾅ・表示名は空白禁止です。"_s;
const QString DraftQuestion =
    u"前回、保存されずに閉じた入力があります。\r\n続きから入力しますか？"_s;

class UpkokyakuTest : public EditFormTest {
protected:
    void openToAdd(const CustomerFields& fields = {}) { open({true, {}, fields}); }
    void openToChange(const customer::KeptCustomer& kept) { open({false, kept.key, kept.fields}); }

    QLineEdit& box(int index)
    {
        return control<QLineEdit>(u"txtkokyaku_"_s + QString::number(index));
    }
    QPlainTextEdit& notes() { return control<QPlainTextEdit>(u"txtkokyaku_15"_s); }
    QStringList names() { return column(u"SELECT 表示名 FROM ユーザー ORDER BY ﾕｰｻﾞｰID"_s); }

private:
    void open(const upkokyaku::Opening& opening)
    {
        show(std::make_unique<upkokyaku>(file, drafts, opening, nullptr));
    }
};

TEST_F(UpkokyakuTest, WritesTheSixteenTextsInTheirColumns)
{
    openToAdd();
    EXPECT_EQ(control<QPushButton>(u"Command1"_s).text(), u"追　加"_s);
    EXPECT_EQ(control<QPushButton>(u"Command2"_s).text(), u"初期化"_s);
    for (int i = 0; i < 15; ++i)
        box(i).setText(u"欄"_s + QString::number(i));
    notes().setPlainText(u"髙﨑𠮷 '100%' [a]\n二行目😀"_s);
    tick("chkkokyaku");
    press("Command1");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(writes->size(), 1);

    const QStringList columns =
        u"表示名ﾌﾘｶﾞﾅ 表示名 ﾕｰｻﾞｰ名ﾌﾘｶﾞﾅ ﾕｰｻﾞｰ名 自宅TEL 自宅FAX 自宅住所 "
        u"会社名ﾌﾘｶﾞﾅ 会社名 部署 会社TEL 会社FAX 会社住所 [E-MAIL] [URL]"_s.split(u' ');
    for (qsizetype i = 0; i < columns.size(); ++i) {
        EXPECT_EQ(valueOf(u"SELECT "_s + columns[i] + u" FROM ユーザー"_s),
                  u"欄"_s + QString::number(i));
    }
    EXPECT_EQ(valueOf(u"SELECT 備考 FROM ユーザー"_s), u"髙﨑𠮷 '100%' [a]\r\n二行目😀"_s);
    EXPECT_EQ(valueOf(u"SELECT Y印字 FROM ユーザー"_s), u"1"_s);
}

TEST_F(UpkokyakuTest, RefusesABlankNameAndKeepsWhatWasTyped)
{
    openToAdd();
    type(box(0), u"ｶﾄｳ"_s);
    press("Command1");
    EXPECT_EQ(messages.takeText(), Blank);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(box(0).text(), u"ｶﾄｳ"_s);
    EXPECT_TRUE(box(1).hasFocus());
    EXPECT_EQ(names(), QStringList());
}

TEST_F(UpkokyakuTest, KeepsEnteringOneCustomerAfterTheOther)
{
    openToAdd();
    tick("chkrenzo");
    for (const QString& name : {u"加藤"_s, u"木村"_s}) {
        type(box(0), u"ﾖﾐ"_s);
        type(box(1), name);
        tick("chkkokyaku");
        press("Command1");
        EXPECT_TRUE(form->isVisible());
        EXPECT_TRUE(box(0).hasFocus());
        EXPECT_EQ(box(0).text() + box(1).text(), QString());
        EXPECT_FALSE(control<QCheckBox>(u"chkkokyaku"_s).isChecked());
    }
    EXPECT_EQ(names(), QStringList({u"加藤"_s, u"木村"_s}));
    EXPECT_EQ(writes->size(), 2);
}

TEST_F(UpkokyakuTest, EnterMovesThroughAllFieldsAndSavesAtTheEnd)
{
    openToAdd();
    confirmConversion(box(0), u"カトウ"_s);
    EXPECT_TRUE(box(0).hasFocus()); // the Enter belonged to the conversion
    EXPECT_EQ(names(), QStringList());
    QTest::keyClick(&box(0), Qt::Key_Return);
    EXPECT_TRUE(box(1).hasFocus());
    type(box(1), u"加藤"_s);
    for (int step = 0; step < 17; ++step) // to 備考, the two boxes and the button
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(names(), QStringList({u"加藤"_s}));
    EXPECT_EQ(valueOf(u"SELECT 備考 FROM ユーザー"_s), QString());
}

TEST_F(UpkokyakuTest, TheReadingFollowsTheNameUntilItIsTypedByHand)
{
    openToAdd();
    QInputMethodEvent composing(u"かとう"_s, {});
    QCoreApplication::sendEvent(&box(1), &composing);
    type(box(1), u"加藤"_s);
    EXPECT_EQ(box(0).text(), u"ｶﾄｳ"_s);
    box(0).setText(u"ｶﾄ"_s);
    QInputMethodEvent more(u"はなこ"_s, {});
    QCoreApplication::sendEvent(&box(1), &more);
    type(box(1), u"花子"_s);
    EXPECT_EQ(box(0).text(), u"ｶﾄ"_s);
}

TEST_F(UpkokyakuTest, ADeclinedChangeIsKeptForTheNextOpening)
{
    const customer::KeptCustomer kept = addNamed(u"加藤"_s, u"ｶﾄｳ"_s);
    openToChange(kept);
    EXPECT_EQ(control<QPushButton>(u"Command1"_s).text(), u"更　新"_s);
    {
        OtherCopy other(path());
        other.clock.set(QDate(2020, 1, 1)); // set back, and still noticed
        execute(other.file, u"UPDATE ユーザー SET 会社名 = '別', 更新日時 = #2020/01/01#"_s);
    }
    box(1).setText(u"加藤 太郎"_s);
    messages.willAnswer(core::Answer::No);
    press("Command1");
    EXPECT_EQ(messages.takeBoxes(),
              QList<ScriptedMessages::Box>(
                  {{52, u"すでにデータが更新されている可能性があります、このまま更新しますか？"_s},
                   {64, u"リスト表示を更新して下さい"_s}}));
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(names(), QStringList({u"加藤"_s}));

    messages.willAnswer(core::Answer::Yes);
    openToChange(fresh(kept.key));
    EXPECT_EQ(messages.takeText(), DraftQuestion);
    EXPECT_EQ(box(1).text(), u"加藤 太郎"_s);
    press("Command1");
    EXPECT_EQ(names(), QStringList({u"加藤 太郎"_s}));
    EXPECT_EQ(valueOf(u"SELECT 会社名 FROM ユーザー"_s), u"別"_s)
        << "the other copy's change stays";
    openToChange(fresh(kept.key)); // saved: nothing is offered any more
}

TEST_F(UpkokyakuTest, AFailedSaveSaysSoAndKeepsTheForm)
{
    openToAdd();
    type(box(0), u"ｶﾄｳ"_s);
    type(box(1), u"加藤"_s);
    execute(u"DROP TABLE 最新発番"_s);
    press("Command1");
    const QList<ScriptedMessages::Box> boxes = messages.takeBoxes();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.first().style, 16);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(box(1).text(), u"加藤"_s);
    EXPECT_EQ(names(), QStringList());
    EXPECT_FALSE(takeErrors().isEmpty());
}

TEST_F(UpkokyakuTest, DeletesAfterAsking)
{
    const customer::KeptCustomer kept = addNamed(u"加藤"_s, u"ｶﾄｳ"_s);
    openToChange(kept);
    EXPECT_EQ(control<QPushButton>(u"Command2"_s).text(), u"削　除"_s);
    messages.willAnswer(core::Answer::No);
    press("Command2");
    EXPECT_EQ(messages.takeText(), u"削除しますか？"_s);
    EXPECT_TRUE(form->isVisible());
    messages.willAnswer(core::Answer::Yes);
    press("Command2");
    messages.takeBoxes();
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(names(), QStringList());
}

TEST_F(UpkokyakuTest, NotesThatWereNotEditedAreNotRewritten)
{
    customer::KeptCustomer kept = addNamed(u"加藤"_s, u"ｶﾄｳ"_s);
    execute(u"UPDATE ユーザー SET 備考 = '一\n二\r\n三'"_s);
    openToChange(fresh(kept.key));
    box(2).setText(u"ﾊﾅｺ"_s);
    press("Command1");
    EXPECT_EQ(valueOf(u"SELECT 備考 FROM ユーザー"_s), u"一\n二\r\n三"_s);
}

} // namespace
