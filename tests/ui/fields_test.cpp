#include "support/scripted_messages.h"
#include "text/dates.h"
#include "ui/date_picker.h"
#include "ui/digits_line_edit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

class DigitsLineEditTest : public testing::Test {
protected:
    DigitsLineEditTest()
    {
        auto* const line = new QVBoxLayout(&form);
        line->addWidget(&price);
        line->addWidget(&other);
        price.checkOnLeaving(messages);
        form.show();
        QApplication::setActiveWindow(&form);
        price.setFocus();
    }

    ScriptedMessages messages;
    QWidget form;
    ui::DigitsLineEdit price;
    QLineEdit other;
};

TEST_F(DigitsLineEditTest, TakesDigitsAndBackspaceOnly)
{
    QTest::keyClicks(&price, u"1a2-.3 "_s);
    QKeyEvent fullWidth(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, u"４"_s);
    QCoreApplication::sendEvent(&price, &fullWidth);
    EXPECT_EQ(price.text(), u"123"_s);
    QTest::keyClick(&price, Qt::Key_Backspace);
    EXPECT_EQ(price.text(), u"12"_s);
    EXPECT_FALSE(price.inputMethodQuery(Qt::ImEnabled).toBool() && [this] {
        QInputMethodQueryEvent query(Qt::ImEnabled);
        QCoreApplication::sendEvent(&price, &query);
        return query.value(Qt::ImEnabled).toBool();
    }());
    other.setFocus();
    QTest::qWait(0);
    EXPECT_TRUE(messages.takeBoxes().isEmpty());
}

// As it comes by the clipboard or by the input method.
void edit(QLineEdit& field, const QString& text)
{
    field.clear();
    field.insert(text);
    field.setModified(true);
}

TEST_F(DigitsLineEditTest, LooksAtEditedTextWhenItIsLeft)
{
    struct Case {
        text::NumberForm form;
        QString edited, kept; // "0": refused
    };
    using enum text::NumberForm;
    const Case cases[] = {
        {Whole, u"1,200"_s, u"1200"_s},   {Whole, u"１２"_s, u"12"_s},
        {Whole, u"−５"_s, u"-5"_s},       {Decimal, u"+1,234.5"_s, u"1234.5"_s},
        {Whole, u"5.0"_s, u"5"_s},        {Whole, u"1,234.00"_s, u"1234"_s},
        {Decimal, u"5.0"_s, u"5.0"_s},    {Whole, u"1.50"_s, u"0"_s},
        {Whole, u"12a"_s, u"0"_s},        {Whole, u""_s, u"0"_s},
        {Whole, u"2147483648"_s, u"0"_s}, {Decimal, u"1234567890123456"_s, u"0"_s},
        {Decimal, u"12,34"_s, u"0"_s},
    };
    for (const Case& each : cases) {
        price.setForm(each.form);
        price.setFocus();
        edit(price, each.edited);
        other.setFocus();
        QTest::qWait(0);
        EXPECT_EQ(price.text(), each.kept) << each.edited.toStdString();
        const bool refused = each.kept == u"0"_s;
        QList<ScriptedMessages::Box> expected;
        if (refused)
            expected.append({48, u"数字のみ入力して下さい。"_s});
        EXPECT_EQ(messages.takeBoxes(), expected) << each.edited.toStdString();
        EXPECT_EQ(QApplication::focusWidget(), refused ? static_cast<QWidget*>(&price) : &other);
    }
}

TEST_F(DigitsLineEditTest, LeavesWhatWasNotEdited)
{
    price.setText(u"12a"_s); // stored so by someone else
    other.setFocus();
    QTest::qWait(0);
    EXPECT_EQ(price.text(), u"12a"_s);
    EXPECT_TRUE(price.judge());
    EXPECT_TRUE(messages.takeBoxes().isEmpty());
}

TEST(DatePicker, ShowsTheStoredTextOnAnyMachine)
{
    const QLocale before;
    for (const QLocale::Language language : {QLocale::C, QLocale::Japanese, QLocale::German}) {
        QLocale::setDefault(QLocale(language));
        for (const QDate day : {QDate(1900, 1, 1), QDate(2024, 2, 29), QDate(2051, 12, 31)}) {
            ui::DatePicker picker;
            picker.setDate(day);
            EXPECT_EQ(picker.text(), text::formatDate(day));
        }
        ui::TimePicker time;
        time.setTime(QTime(9, 5));
        EXPECT_EQ(time.text(), u"09:05"_s);
    }
    QLocale::setDefault(before);
}

} // namespace
