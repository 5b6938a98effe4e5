#include "customer/screens/upkyotei.h"
#include "repair/screens/upcyotei.h"
#include "support/records/data/each_kind_test.h"
#include "support/records/screens/form_test.h"

#include <QDateEdit>
#include <QTimeEdit>

using namespace Qt::StringLiterals;

namespace {

// The schedule editor on either kind of file.
class UpyoteiTest : public FormTest<EachKindTest> {
protected:
    void openToAdd(QDate day)
    {
        if (isRepair())
            add<repair::upcyotei>({}, day);
        else
            add<customer::upkyotei>({}, day);
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

INSTANTIATE_TEST_SUITE_P(Kinds, UpyoteiTest, EachKind, kindName);

} // namespace
