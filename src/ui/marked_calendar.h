#pragma once

#include <QCalendarWidget>
#include <QSet>

namespace ui {

// The colours of the weekend's days on a palette, readable on its bases: 4.5:1 and more.
struct DayColours {
    QColor holiday; // and Sunday
    QColor saturday;
};
DayColours dayColours(const QPalette& palette);

// A month with Japanese weekdays, Sunday first, Saturdays blue, Sundays and national holidays red,
// the holidays with their names as tips, that marks days. Today has a frame; the button 今日 and
// Ctrl+T go back to it.
class MarkedCalendar : public QCalendarWidget {
    Q_OBJECT

public:
    explicit MarkedCalendar(QWidget* parent = nullptr);

    // The day that has the frame; the machine's until it is set.
    void setToday(QDate day);
    // Shows and chooses today.
    void goToToday();
    // The days that are marked with a dot.
    void setMarked(QSet<QDate> days);
    // The first and the last day that the shown month's sheet has, days of its neighbours included.
    std::pair<QDate, QDate> shownDays() const;

protected:
    void paintCell(QPainter* painter, const QRect& cell, QDate day) const override;
    void changeEvent(QEvent* event) override;

private:
    void addTodayButton();
    void colourWeekend();
    void colourHolidays();

    QDate m_today = QDate::currentDate();
    QSet<QDate> m_marked;
};

} // namespace ui
