#include "customer/screens/upkrog.h"

#include "support/customer/screens/edit_form_test.h"

#include <QComboBox>
#include <QDateEdit>

using namespace Qt::StringLiterals;
using customer::upkrog;

namespace {

class UpkrogTest : public EditFormTest {
protected:
    void SetUp() override
    {
        EditFormTest::SetUp();
        owner = addNamed(u"加藤"_s, u"ｶﾄｳ"_s).key;
        ofCase = addCaseOf(owner, u"点検"_s).key;
    }

    void openToAdd() { add<upkrog>({ofCase}); }
    void enter(const QString& recorder, const QString& text)
    {
        control<QComboBox>(u"Combo2"_s).setCurrentText(recorder);
        type(control<QPlainTextEdit>(u"Rrogu"_s), text);
    }

    core::RecordKey owner;
    core::RecordKey ofCase;
};

TEST_F(UpkrogTest, OffersTheRecordersWhoWroteLast)
{
    openToAdd();
    tick("chkrenzo");
    enter(u"佐藤"_s, u"受付\n折り返し電話"_s);
    control<QDateEdit>(u"DTPicker2"_s).setDate(QDate(2024, 4, 1));
    press("Command1");
    // 連続して入力 goes on with the next text of the same day and recorder.
    EXPECT_EQ(control<QComboBox>(u"Combo2"_s).currentText(), u"佐藤"_s);
    EXPECT_EQ(control<QDateEdit>(u"DTPicker2"_s).date(), QDate(2024, 4, 1));
    EXPECT_EQ(control<QPlainTextEdit>(u"Rrogu"_s).toPlainText(), QString());
    EXPECT_TRUE(control<QPlainTextEdit>(u"Rrogu"_s).hasFocus());
    EXPECT_EQ(control<QComboBox>(u"Combo2"_s).itemText(0), u"佐藤"_s); // at once for the next
    enter(u"鈴木"_s, u"訪問"_s);
    press("Command1");
    EXPECT_EQ(column(u"SELECT Rログ FROM ログ ORDER BY ログID"_s),
              QStringList({u"受付\r\n折り返し電話"_s, u"訪問"_s}));

    openToAdd(); // names already used are offered, the last one first
    EXPECT_EQ(control<QComboBox>(u"Combo2"_s).itemText(0), u"鈴木"_s);
    EXPECT_EQ(control<QComboBox>(u"Combo2"_s).currentText(), QString());
}

TEST_F(UpkrogTest, EnterWritesALineAndConversionsStayInTheField)
{
    openToAdd();
    auto& text = control<QPlainTextEdit>(u"Rrogu"_s);
    confirmConversion(text, u"一"_s);
    EXPECT_EQ(text.toPlainText(), u"一"_s);
    QTest::keyClick(&text, Qt::Key_Return);
    type(text, u"二"_s);
    EXPECT_EQ(text.toPlainText(), u"一\n二"_s);
    EXPECT_TRUE(text.hasFocus());
    press("Command2");
}

// The names that dropped down do not take the first click that is meant for something else.
TEST_F(UpkrogTest, AClickBesideTheNamesGoesWhereItWasAimed)
{
    addLogOf(ofCase, u"佐藤"_s, u"受付"_s);
    openToAdd();
    control<QComboBox>(u"Combo2"_s).setFocus(Qt::TabFocusReason);
    const auto dropped = [] { return QApplication::activePopupWidget() != nullptr; };
    ASSERT_TRUE(QTest::qWaitFor(dropped));
    auto& further = control<QCheckBox>(u"chkrenzo"_s);
    const QPoint aimed = further.mapToGlobal(QPoint(8, further.height() / 2));
    QWidget* const names = QApplication::activePopupWidget();
    QTest::mousePress(names, Qt::LeftButton, {}, names->mapFromGlobal(aimed));
    QTest::mouseRelease(&further, Qt::LeftButton, {}, further.mapFromGlobal(aimed));
    EXPECT_FALSE(dropped());
    EXPECT_TRUE(QTest::qWaitFor([&further] { return further.hasFocus(); }));
}

} // namespace
