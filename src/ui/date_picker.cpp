#include "ui/date_picker.h"

#include "ui/input_method_off.h"
#include "ui/marked_calendar.h"

#include <QLineEdit>

using namespace Qt::Literals::StringLiterals;

namespace ui {

DatePicker::DatePicker(QWidget* parent) : QDateEdit(parent)
{
    setLocale(QLocale(QLocale::Japanese, QLocale::Japan));
    setDateRange(QDate(100, 1, 1), QDate(9999, 12, 31));
    setDisplayFormat(u"yyyy/MM/dd(ddd)"_s);
    setCalendarPopup(true);
    setCalendarWidget(new MarkedCalendar(this));
    switchInputMethodOff(*this);
    switchInputMethodOff(*lineEdit());
}

TimePicker::TimePicker(QWidget* parent) : QTimeEdit(parent)
{
    setLocale(QLocale(QLocale::Japanese, QLocale::Japan));
    setDisplayFormat(u"HH:mm"_s);
    switchInputMethodOff(*this);
    switchInputMethodOff(*lineEdit());
}

} // namespace ui
