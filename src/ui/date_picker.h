#pragma once

#include <QDateEdit>
#include <QTimeEdit>

namespace ui {

// A date as "yyyy/MM/dd(ddd)" with the Japanese weekday on any machine, with a calendar to drop
// down. The input method is off in it.
class DatePicker : public QDateEdit {
    Q_OBJECT

public:
    explicit DatePicker(QWidget* parent = nullptr);
};

// A time of day as "HH:mm". The input method is off in it.
class TimePicker : public QTimeEdit {
    Q_OBJECT

public:
    explicit TimePicker(QWidget* parent = nullptr);
};

} // namespace ui
