#include "support/fixed_clock.h"
#include "support/scripted_messages.h"
#include "text/dates.h"
#include "ui/date_picker.h"
#include "ui/marked_calendar.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

class DatePickerTest : public testing::Test {
protected:
    DatePickerTest()
    {
        auto* const line = new QVBoxLayout(&form);
        for (QWidget* const each : std::initializer_list<QWidget*>{&day, &time, &other, &stored})
            line->addWidget(each);
        day.setObjectName(u"day"_s);
        stored.setObjectName(u"storedday"_s);
        day.setClock(clock);
        day.checkOnLeaving(messages);
        time.checkOnLeaving(messages);
        form.show();
        QApplication::setActiveWindow(&form);
        reset();
    }

    void reset()
    {
        day.setDate(QDate(2024, 1, 31));
        time.setTime(QTime(8, 0));
    }
    template <typename Picker> static QLineEdit& editOf(Picker& picker)
    {
        return *picker.template findChild<QLineEdit*>();
    }
    // Clicks on the sign at a place of the text.
    template <typename Picker> static void click(Picker& picker, int sign)
    {
        QLineEdit& edit = editOf(picker);
        edit.setCursorPosition(sign);
        const QRectF cursor = edit.inputMethodQuery(Qt::ImCursorRectangle).toRectF();
        QTest::mouseClick(&edit, Qt::LeftButton, {}, cursor.center().toPoint());
    }
    void leave()
    {
        other.setFocus(Qt::TabFocusReason);
        QTest::qWait(0);
    }

    FixedClock clock{QDate(2026, 11, 23)};
    ScriptedMessages messages;
    QWidget form;
    ui::DatePicker day;
    ui::TimePicker time;
    QLineEdit other;
    QLabel stored;
};

TEST_F(DatePickerTest, TakesWhatIsTypedWhereverItWasClicked)
{
    const struct {
        int clicked; // -1: Ctrl+A
        QString typed, shown;
    } table[] = {
        {1, u"2027"_s, u"2027/01/31(日)"_s},
        {6, u"5"_s, u"2024/05/31(金)"_s},
        {5, u"12"_s, u"2024/12/31(火)"_s},
        {8, u"07"_s, u"2024/01/07(日)"_s},
        {9, u"9"_s, u"2024/01/09(火)"_s},
        {11, u"9"_s, u"2024/01/09(火)"_s},
        {1, u"2027/12/31"_s, u"2027/12/31(金)"_s},
        {6, u"2027/12/31"_s, u"2027/12/31(金)"_s},
        {9, u"2027-12-31"_s, u"2027/12/31(金)"_s},
        {1, u"20271231"_s, u"2027/12/31(金)"_s},
        {6, u"20271231"_s, u"2027/12/31(金)"_s},
        {-1, u"20271231"_s, u"2027/12/31(金)"_s},
        {-1, u"2027/12/31"_s, u"2027/12/31(金)"_s},
        {-1, u"12/31"_s, u"2026/12/31(木)"_s},
        {1, u"12/31"_s, u"2026/12/31(木)"_s},
        {1, u"２０２７／１２／３１"_s, u"2027/12/31(金)"_s},
        {1, u"2027年1月5日"_s, u"2027/01/05(火)"_s},
    };
    for (const auto& row : table) {
        reset();
        day.setFocus();
        if (row.clicked < 0)
            QTest::keyClick(&day, Qt::Key_A, Qt::ControlModifier);
        else
            click(day, row.clicked);
        for (const QChar sign : row.typed) {
            QKeyEvent key(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(sign));
            QCoreApplication::sendEvent(&day, &key);
        }
        // A save by key takes it from the field that still has the focus.
        EXPECT_EQ(text::formatDate(day.date()), row.shown) << row.typed.toStdString();
        leave();
        EXPECT_EQ(day.text(), row.shown) << row.typed.toStdString() << " at " << row.clicked;
    }
    EXPECT_TRUE(messages.takeBoxes().isEmpty());
}

TEST_F(DatePickerTest, TakesTimesAndWhatIsPastedOrComposed)
{
    for (const QString& typed : {u"9:30"_s, u"0930"_s, u"930"_s, u"９：３０"_s}) {
        for (const int clicked : {0, 4}) {
            reset();
            time.setFocus();
            click(time, clicked);
            QInputMethodEvent composed;
            composed.setCommitString(typed);
            QCoreApplication::sendEvent(&time, &composed);
            leave();
            EXPECT_EQ(time.text(), u"09:30"_s) << typed.toStdString() << " at " << clicked;
        }
    }
    for (const QString& copied : {u"2027/12/31(金)\n"_s, u"2027年12月31日"_s, u"20271231"_s}) {
        for (const bool byMenu : {false, true}) {
            reset();
            day.setFocus();
            QGuiApplication::clipboard()->setText(copied);
            click(day, 6);
            if (byMenu) {
                QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, day.mapToGlobal(QPoint()));
                QCoreApplication::sendEvent(&day, &asked);
                auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
                ASSERT_NE(menu, nullptr);
                menu->findChild<QAction*>(u"edit-paste"_s)->trigger();
                menu->close();
            } else {
                QTest::keyClick(&day, Qt::Key_V, Qt::ControlModifier);
            }
            EXPECT_EQ(day.text(), u"2027/12/31(金)"_s) << copied.toStdString();
        }
    }
    EXPECT_TRUE(messages.takeBoxes().isEmpty());
}

TEST_F(DatePickerTest, RefusesWhatIsNoDate)
{
    for (const QString& typed : {u"2027/13/31"_s, u"27/12/31"_s, u"2/30"_s}) {
        reset();
        click(day, 1);
        QTest::keyClicks(&day, typed);
        EXPECT_FALSE(day.judge());
        EXPECT_EQ(messages.takeText(),
                  u"『 "_s + typed
                      + u" 』は日付として読めません。\r\n2027/12/31 のように入力して下さい。"_s);
        EXPECT_EQ(day.text(), u"2024/01/31(水)"_s);
        QTest::keyClicks(&day, typed);
        leave();
        EXPECT_EQ(messages.takeBoxes().size(), 1);
        EXPECT_TRUE(day.hasFocus());
    }
    reset();
    click(day, 6); // the 31st of a month that has none, on the way to its 28th
    QTest::keyClicks(&day, u"2"_s);
    QTest::keyClick(&day, Qt::Key_Right);
    QTest::keyClicks(&day, u"28"_s);
    leave();
    EXPECT_EQ(day.text(), u"2024/02/28(水)"_s);
    time.setFocus();
    QTest::keyClicks(&time, u"25"_s);
    leave();
    EXPECT_EQ(messages.takeText(),
              u"『 25:00 』は時刻として読めません。\r\n9:30 のように入力して下さい。"_s);
}

TEST_F(DatePickerTest, StepsThePartAndDropsTheCalendarDown)
{
    day.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&day, Qt::Key_Up);
    QTest::keyClick(&day, Qt::Key_Right);
    QTest::keyClick(&day, Qt::Key_Up);
    EXPECT_EQ(day.text(), u"2025/02/28(金)"_s);
    QTest::keyClick(&day, Qt::Key_End);
    QTest::keyClick(&day, Qt::Key_Up);
    EXPECT_EQ(day.text(), u"2025/03/01(土)"_s);
    QTest::keyClick(&time, Qt::Key_Down);
    EXPECT_EQ(time.text(), u"07:00"_s);
    QTest::keyClick(&day, Qt::Key_F4);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    static_cast<ui::MarkedCalendar*>(day.calendarWidget())->goToToday();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(day.text(), u"2026/11/23(月)"_s);
}

TEST_F(DatePickerTest, ShowsAStoredTextThatIsNoDateUntilOneIsEntered)
{
    for (const bool typed : {true, false}) {
        day.showStored(u"<b>来週</b>"_s);
        EXPECT_EQ(stored.text(), u"保存されている値: <b>来週</b>"_s);
        EXPECT_TRUE(stored.isVisible());
        day.setFocus();
        leave();
        EXPECT_EQ(day.storedText(), u"<b>来週</b>"_s);
        if (typed)
            QTest::keyClicks(&day, u"2024"_s); // as it is shown
        else
            emit day.calendarWidget()->clicked(day.date());
        EXPECT_EQ(day.storedText(), QString());
        EXPECT_FALSE(stored.isVisible());
    }
}

} // namespace
