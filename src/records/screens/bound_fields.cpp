#include "records/screens/bound_fields.h"

#include "text/dates.h"
#include "text/lines.h"
#include "ui/digits_line_edit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimeEdit>

#include <algorithm>

namespace records {

void BoundFields::bind(QLineEdit* field, const QString& column)
{
    // A pasted text may have line ends in a field of one line too.
    m_bound.push_back({field, column,
                       [field](const storage::Value& value) { field->setText(value.toText()); },
                       [field] { return storage::Value(text::toStoredLines(field->text())); }});
}

void BoundFields::bind(ui::DigitsLineEdit* field, const QString& column)
{
    m_numbers.push_back(field);
    m_bound.push_back({field, column,
                       [field](const storage::Value& value) { field->setText(value.toText()); },
                       [field] { return storage::Value(field->plainText()); }});
}

void BoundFields::bind(QPlainTextEdit* field, const QString& column)
{
    m_bound.push_back(
        {field, column,
         [field](const storage::Value& value) {
             field->setPlainText(text::toWidgetLines(value.toText()));
         },
         [field] { return storage::Value(text::toStoredLines(field->toPlainText())); }});
}

void BoundFields::bind(QComboBox* field, const QString& column)
{
    const auto show = [field](const storage::Value& value) {
        const QString text = value.toText();
        constexpr auto Exactly = Qt::MatchFixedString | Qt::MatchCaseSensitive;
        if (!field->isEditable() && field->findText(text, Exactly) < 0)
            field->addItem(text);
        field->setCurrentText(text);
    };
    m_bound.push_back(
        {field, column, show, [field] { return storage::Value(field->currentText()); }});
}

void BoundFields::bind(QCheckBox* field, const QString& column)
{
    m_bound.push_back(
        {field, column,
         [field](const storage::Value& value) { field->setChecked(value.toInteger() == 1); },
         [field] { return storage::Value(field->isChecked() ? 1 : 0); }});
}

void BoundFields::bind(QDateEdit* field, const QString& column, QCheckBox* only)
{
    const auto show = [field, only](const storage::Value& value) {
        const std::optional<QDate> day = text::parseDate(value.toText());
        if (only)
            only->setChecked(day.has_value());
        if (day)
            field->setDate(*day);
    };
    m_bound.push_back({field, column, show, [field, only] {
                           const bool has = !only || only->isChecked();
                           return storage::Value(has ? text::formatDate(field->date()) : QString());
                       }});
}

void BoundFields::bind(QTimeEdit* field, const QString& column)
{
    const auto show = [field](const storage::Value& value) {
        if (const std::optional<QTime> time = text::parseTime(value.toText()))
            field->setTime(*time);
    };
    m_bound.push_back(
        {field, column, show, [field] { return storage::Value(text::formatTime(field->time())); }});
}

void BoundFields::fill(const FieldValues& record) const
{
    for (const Bound& bound : m_bound)
        bound.show(fieldValue(record, bound.column));
}

FieldValues BoundFields::values() const
{
    FieldValues values;
    for (const Bound& bound : m_bound)
        values.append({bound.column, bound.value()});
    return values;
}

void BoundFields::checkNumbers(core::Messages& messages) const
{
    for (ui::DigitsLineEdit* const field : m_numbers)
        field->checkOnLeaving(messages);
}

bool BoundFields::judgeNumbers() const
{
    return std::ranges::all_of(m_numbers, [](ui::DigitsLineEdit* field) { return field->judge(); });
}

QWidget* BoundFields::widgetOf(const QString& column) const
{
    for (const Bound& bound : m_bound) {
        if (bound.column == column)
            return bound.widget;
    }
    return nullptr;
}

} // namespace records
