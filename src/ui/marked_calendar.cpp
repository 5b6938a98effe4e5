#include "ui/marked_calendar.h"

#include "text/holidays.h"

#include <QBoxLayout>
#include <QEvent>
#include <QPainter>
#include <QSpinBox>
#include <QTextCharFormat>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace ui {
namespace {

constexpr int SheetDays = 42; // six weeks
const DayColours OnLight{QColor(0xb7, 0x1c, 0x1c), QColor(0x0d, 0x47, 0xa1)};
const DayColours OnDark{QColor(0xff, 0x9e, 0x94), QColor(0x9a, 0xc4, 0xff)};
const QColor MarkColour(0xef, 0x6c, 0x00);
constexpr int HalfLightness = 128;

// Japanese has the year first, with 年 behind it.
void putYearFirst(QCalendarWidget& calendar)
{
    if (auto* const edit = calendar.findChild<QSpinBox*>(u"qt_calendar_yearedit"_s))
        edit->setSuffix(u"年"_s);
    if (auto* const button = calendar.findChild<QToolButton*>(u"qt_calendar_yearbutton"_s)) {
        const auto showYear = [button](int year) {
            button->setText(QString::number(year) + u'年');
        };
        QObject::connect(&calendar, &QCalendarWidget::currentPageChanged, button, showYear);
        showYear(calendar.yearShown());
    }
    auto* const bar = calendar.findChild<QWidget*>(u"qt_calendar_navigationbar"_s);
    auto* const month = calendar.findChild<QWidget*>(u"qt_calendar_monthbutton"_s);
    auto* const line = bar ? qobject_cast<QBoxLayout*>(bar->layout()) : nullptr;
    if (!line || !month)
        return;
    for (const QString& name : {u"qt_calendar_yearbutton"_s, u"qt_calendar_yearedit"_s}) {
        if (auto* const year = calendar.findChild<QWidget*>(name)) {
            line->removeWidget(year);
            line->insertWidget(line->indexOf(month), year);
        }
    }
}

} // namespace

DayColours dayColours(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < HalfLightness ? OnDark : OnLight;
}

MarkedCalendar::MarkedCalendar(QWidget* parent) : QCalendarWidget(parent)
{
    setLocale(QLocale(QLocale::Japanese, QLocale::Japan));
    setFirstDayOfWeek(Qt::Sunday);
    setVerticalHeaderFormat(NoVerticalHeader);
    setHorizontalHeaderFormat(SingleLetterDayNames);
    putYearFirst(*this);
    addTodayButton();
    colourWeekend();
    colourHolidays();
    connect(this, &QCalendarWidget::currentPageChanged, this, &MarkedCalendar::colourHolidays);
}

void MarkedCalendar::addTodayButton()
{
    auto* const bar = findChild<QWidget*>(u"qt_calendar_navigationbar"_s);
    auto* const line = bar ? qobject_cast<QBoxLayout*>(bar->layout()) : nullptr;
    auto* const next = findChild<QWidget*>(u"qt_calendar_nextmonth"_s);
    if (!line || !next)
        return;
    auto* const button = new QToolButton(bar);
    button->setObjectName(u"ToolToday"_s);
    button->setText(u"今日"_s);
    button->setToolTip(u"今日に戻る (Ctrl+T)"_s);
    button->setAccessibleName(u"今日に戻る"_s);
    button->setShortcut(Qt::CTRL | Qt::Key_T);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setForegroundRole(QPalette::HighlightedText); // as the month beside it
    line->insertWidget(line->indexOf(next), button);
    connect(button, &QToolButton::clicked, this, &MarkedCalendar::goToToday);
}

void MarkedCalendar::setToday(QDate day)
{
    m_today = day;
    updateCells();
}

void MarkedCalendar::goToToday()
{
    setSelectedDate(m_today);
    showSelectedDate();
    emit activated(m_today); // a calendar that was dropped down takes it and closes
}

void MarkedCalendar::colourWeekend()
{
    const DayColours colours = dayColours(palette());
    QTextCharFormat format;
    format.setForeground(colours.holiday);
    setWeekdayTextFormat(Qt::Sunday, format);
    format.setForeground(colours.saturday);
    setWeekdayTextFormat(Qt::Saturday, format);
}

void MarkedCalendar::colourHolidays()
{
    setDateTextFormat(QDate(), {}); // all
    QTextCharFormat format;
    format.setForeground(dayColours(palette()).holiday);
    const auto [first, last] = shownDays();
    for (QDate day = first; day <= last; day = day.addDays(1)) {
        const QString name = text::holidayName(day);
        if (name.isEmpty())
            continue;
        format.setToolTip(name);
        setDateTextFormat(day, format);
    }
}

void MarkedCalendar::changeEvent(QEvent* event)
{
    QCalendarWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        colourWeekend();
        colourHolidays();
    }
}

void MarkedCalendar::setMarked(QSet<QDate> days)
{
    m_marked = std::move(days);
    updateCells();
}

std::pair<QDate, QDate> MarkedCalendar::shownDays() const
{
    const QDate first(yearShown(), monthShown(), 1);
    // A month that begins on the first weekday is moved down a week by the widget.
    const int before = first.dayOfWeek() % 7 == 0 ? 7 : first.dayOfWeek() % 7;
    const QDate top = first.addDays(-before);
    return {top, top.addDays(SheetDays - 1)};
}

void MarkedCalendar::paintCell(QPainter* painter, const QRect& cell, QDate day) const
{
    QCalendarWidget::paintCell(painter, cell, day);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (day == m_today) {
        painter->setPen(
            palette().color(day == selectedDate() ? QPalette::HighlightedText : QPalette::Text));
        painter->drawRoundedRect(QRectF(cell).adjusted(1.5, 1.5, -1.5, -1.5), 3, 3);
    }
    if (m_marked.contains(day)) {
        const int size = qMax(4, cell.height() / 5);
        painter->setPen(Qt::NoPen);
        painter->setBrush(MarkColour);
        painter->drawEllipse(cell.right() - size - 2, cell.top() + 2, size, size);
    }
    painter->restore();
}

} // namespace ui
