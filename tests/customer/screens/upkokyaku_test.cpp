#include "customer/screens/upkokyaku.h"

#include "support/customer/screens/edit_form_test.h"

#include <QClipboard>

using namespace Qt::StringLiterals;
using customer::upkokyaku;

namespace {

class UpkokyakuTest : public EditFormTest {
protected:
    void SetUp() override
    {
        EditFormTest::SetUp();
        add<upkokyaku>({});
    }
    QLineEdit& box(int index)
    {
        return control<QLineEdit>(u"txtkokyaku_"_s + QString::number(index));
    }
    QPlainTextEdit& notes() { return control<QPlainTextEdit>(u"txtkokyaku_15"_s); }
    QStringList names() { return column(u"SELECT 表示名 FROM ユーザー ORDER BY ﾕｰｻﾞｰID"_s); }
};

TEST_F(UpkokyakuTest, WritesTheSixteenTextsInTheirColumns)
{
    for (int i = 0; i < 15; ++i)
        box(i).setText(u"欄"_s + QString::number(i));
    notes().setPlainText(u"髙﨑𠮷 '100%' [a]\n二行目😀"_s);
    tick("chkkokyaku");
    press("Command1");

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

// Neither what is pasted nor what the record holds is cut by a field.
TEST_F(UpkokyakuTest, ALongTextIsKeptWholeAndSeenFromItsStart)
{
    const QString name = QString(40'000, u'名');
    QGuiApplication::clipboard()->setText(name);
    box(1).setFocus();
    box(1).paste();
    box(0).setText(u"ﾅ"_s);
    press("Command1");
    EXPECT_EQ(names(), QStringList{name});
    edit<upkokyaku>(customer::customerTable(), form->savedRecord()->key);
    EXPECT_EQ(box(1).text(), name);
    EXPECT_EQ(box(1).cursorPosition(), 0);
    EXPECT_FALSE(box(0).hasSelectedText()) << "the next key shall not replace it";
    press("Command1");
    EXPECT_EQ(names(), QStringList{name});
}

TEST_F(UpkokyakuTest, RefusesABlankNameAndKeepsWhatWasTyped)
{
    type(box(0), u"ｶﾄｳ"_s);
    press("Command1");
    EXPECT_EQ(messages.takeText(), u"表示ﾌﾘｶﾞﾅ・表示名は空白禁止です。"_s);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(box(0).text(), u"ｶﾄｳ"_s);
    EXPECT_TRUE(box(1).hasFocus());
    EXPECT_EQ(names(), QStringList());
}

TEST_F(UpkokyakuTest, EnterMovesThroughAllFieldsAndSavesAtTheEnd)
{
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

} // namespace
