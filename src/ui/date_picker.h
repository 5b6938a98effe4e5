#pragma once

#include "ui/typed_edit.h"

#include <QDateEdit>
#include <QTimeEdit>

namespace core {
class Clock;
}

namespace ui {

class MarkedCalendar;

// A date as "yyyy/MM/dd(ddd)" with the Japanese weekday on any machine, typed in any form that
// text::readTypedDate reads, with a calendar to drop down. The input method is off in it.
class DatePicker : public TypedEdit<QDateEdit> {
    Q_OBJECT

public:
    explicit DatePicker(QWidget* parent = nullptr);

    // Whose day is marked in the calendar and whose year is meant when none is typed; lives longer.
    // Without it, the machine's.
    void setClock(const core::Clock& clock);

protected:
    std::optional<QDateTime> read(const QString& text) const override;
    QString write(const QDateTime& value) const override;
    QDateTime stepped(int part, int steps) const override;
    QString refusal() const override;
    void dropDown() override;
    void focusInEvent(QFocusEvent* event) override;

private:
    QDate today() const;

    const core::Clock* m_clock = nullptr;
    MarkedCalendar* m_calendar;
};

// A time of day as "HH:mm", typed in any form that text::readTypedTime reads. The input method is
// off in it.
class TimePicker : public TypedEdit<QTimeEdit> {
    Q_OBJECT

public:
    explicit TimePicker(QWidget* parent = nullptr);

protected:
    std::optional<QDateTime> read(const QString& text) const override;
    QString write(const QDateTime& value) const override;
    QDateTime stepped(int part, int steps) const override;
    QString refusal() const override;
};

} // namespace ui
