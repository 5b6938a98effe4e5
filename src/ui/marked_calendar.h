#pragma once

#include <QCalendarWidget>
#include <QSet>

namespace ui {

// A month with Japanese weekdays, Sunday first, Saturdays blue and Sundays red, that marks days.
class MarkedCalendar : public QCalendarWidget {
    Q_OBJECT

public:
    explicit MarkedCalendar(QWidget* parent = nullptr);

    // The days that are marked with a dot.
    void setMarked(QSet<QDate> days);
    // The first and the last day that the shown month's sheet has, days of its neighbours included.
    std::pair<QDate, QDate> shownDays() const;

protected:
    void paintCell(QPainter* painter, const QRect& cell, QDate day) const override;

private:
    QSet<QDate> m_marked;
};

} // namespace ui
