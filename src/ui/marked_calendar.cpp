#include "ui/marked_calendar.h"

#include <QBoxLayout>
#include <QPainter>
#include <QSpinBox>
#include <QTextCharFormat>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace ui {
namespace {

constexpr int SheetDays = 42; // six weeks
const QColor SundayColour(0xc6, 0x28, 0x28);
const QColor SaturdayColour(0x15, 0x65, 0xc0);
const QColor MarkColour(0xef, 0x6c, 0x00);

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

MarkedCalendar::MarkedCalendar(QWidget* parent) : QCalendarWidget(parent)
{
    setLocale(QLocale(QLocale::Japanese, QLocale::Japan));
    setFirstDayOfWeek(Qt::Sunday);
    setVerticalHeaderFormat(NoVerticalHeader);
    setHorizontalHeaderFormat(SingleLetterDayNames);
    putYearFirst(*this);
    QTextCharFormat format;
    format.setForeground(SundayColour);
    setWeekdayTextFormat(Qt::Sunday, format);
    format.setForeground(SaturdayColour);
    setWeekdayTextFormat(Qt::Saturday, format);
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
    if (!m_marked.contains(day))
        return;
    const int size = qMax(4, cell.height() / 5);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(MarkColour);
    painter->drawEllipse(cell.right() - size - 2, cell.top() + 2, size, size);
    painter->restore();
}

} // namespace ui
