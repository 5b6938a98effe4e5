#include "ui/date_picker.h"

#include "core/data/clock.h"
#include "text/dates.h"
#include "text/typed_dates.h"
#include "ui/marked_calendar.h"

#include <QLineEdit>
#include <QMouseEvent>
#include <QStyleOptionComboBox>

using namespace Qt::Literals::StringLiterals;

namespace ui {
namespace {

enum DatePart { Year, Month, Day };
enum TimePart { Hour, Minute };
constexpr int MinutesInHour = 60;
constexpr int SecondsInMinute = 60;

} // namespace

DatePicker::DatePicker(QWidget* parent)
    : TypedEdit({4, 2, 2}, parent), m_calendar(new MarkedCalendar(this))
{
    setLocale(QLocale(QLocale::Japanese, QLocale::Japan));
    setDateRange(QDate(100, 1, 1), QDate(9999, 12, 31));
    setDisplayFormat(u"yyyy/MM/dd(ddd)"_s);
    setCalendarPopup(true);
    setCalendarWidget(m_calendar);
    // The day that is shown can be chosen too, which changes nothing and yet says what is meant.
    connect(m_calendar, &QCalendarWidget::clicked, this, [this] { entered(); });
    connect(m_calendar, &QCalendarWidget::activated, this, [this] { entered(); });
}

void DatePicker::setClock(const core::Clock& clock)
{
    m_clock = &clock;
    m_calendar->setToday(today());
}

QDate DatePicker::today() const
{
    return m_clock ? m_clock->today() : QDate::currentDate();
}

std::optional<QDateTime> DatePicker::read(const QString& text) const
{
    const std::optional<QDate> day = text::readTypedDate(text, today().year());
    return day ? std::optional(day->startOfDay()) : std::nullopt;
}

QString DatePicker::write(const QDateTime& value) const
{
    return text::formatDate(value.date());
}

QDateTime DatePicker::stepped(int part, int steps) const
{
    const QDate next = part == Year ? date().addYears(steps)
        : part == Month             ? date().addMonths(steps)
                                    : date().addDays(steps);
    return next.startOfDay();
}

QString DatePicker::refusal() const
{
    return u"日付として読めません。\r\n2027/12/31 のように入力して下さい。"_s;
}

void DatePicker::focusInEvent(QFocusEvent* event)
{
    m_calendar->setToday(today()); // midnight may have passed
    TypedEdit::focusInEvent(event);
}

// Qt knows no other way than a click on the arrow.
void DatePicker::dropDown()
{
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.editable = true;
    option.subControls = QStyle::SC_All;
    const QPointF arrow =
        style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this)
            .center();
    QMouseEvent press(QEvent::MouseButtonPress, arrow, mapToGlobal(arrow), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    mousePressEvent(&press);
}

TimePicker::TimePicker(QWidget* parent) : TypedEdit({2, 2}, parent)
{
    setLocale(QLocale(QLocale::Japanese, QLocale::Japan));
    setDisplayFormat(u"HH:mm"_s);
}

std::optional<QDateTime> TimePicker::read(const QString& text) const
{
    const std::optional<QTime> time = text::readTypedTime(text);
    return time ? std::optional(QDateTime(date(), *time)) : std::nullopt;
}

QString TimePicker::write(const QDateTime& value) const
{
    return text::formatTime(value.time());
}

// Round the clock.
QDateTime TimePicker::stepped(int part, int steps) const
{
    const int minutes = part == Hour ? steps * MinutesInHour : steps;
    return {date(), time().addSecs(minutes * SecondsInMinute)};
}

QString TimePicker::refusal() const
{
    return u"時刻として読めません。\r\n9:30 のように入力して下さい。"_s;
}

} // namespace ui
