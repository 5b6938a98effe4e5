#pragma once

#include "records/data/fields.h"

#include <QString>

#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QWidget;

namespace core {
class Messages;
}
namespace ui {
class DatePicker;
class DigitsLineEdit;
class TimePicker;
} // namespace ui

namespace records {

// The widgets of a form and the columns that they show. Texts have CR LF line ends in the record
// and what the widgets give on the screen; days are kept as "yyyy/mm/dd(aaa)", times as "hh:mm",
// a check box as 1 or 0.
class BoundFields {
public:
    void bind(QLineEdit* field, const QString& column);
    // Numbers: text that can be read as one is given in plain digits.
    void bind(ui::DigitsLineEdit* field, const QString& column);
    void bind(QPlainTextEdit* field, const QString& column);
    // A value that is not among the offered ones is added to them: it is shown as it is stored.
    void bind(QComboBox* field, const QString& column);
    void bind(QCheckBox* field, const QString& column);
    // A day that is missing leaves the proposed one in the field. With a check box: there is a day
    // only while it is ticked. A text that is no day, or no time, is shown beside the field and
    // stays what it is until something is entered.
    void bind(ui::DatePicker* field, const QString& column, QCheckBox* only = nullptr);
    void bind(ui::TimePicker* field, const QString& column);

    // Shows a record's fields.
    void fill(const FieldValues& record) const;
    // What the fields hold, by column, in the order in which they were bound.
    FieldValues values() const;
    // The fields of numbers, days and times are judged when they are left; whom to tell lives
    // longer.
    void checkNumbers(core::Messages& messages) const;
    // Judges those that were edited at once; false when one was refused.
    bool judgeNumbers() const;
    // The widget of a column; null when none shows it.
    QWidget* widgetOf(const QString& column) const;

private:
    struct Bound {
        QWidget* widget;
        QString column;
        std::function<void(const storage::Value&)> show;
        std::function<storage::Value()> value;
    };
    std::vector<Bound> m_bound;
    // What judges a field at once, and tells it whom to tell when it is left.
    struct Judged {
        std::function<bool()> judge;
        std::function<void(core::Messages&)> checkOnLeaving;
    };
    template <typename Field> void judged(Field* field);
    std::vector<Judged> m_judged;
};

} // namespace records
