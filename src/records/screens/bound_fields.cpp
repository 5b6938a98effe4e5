#include "records/screens/bound_fields.h"

#include "text/dates.h"
#include "text/lines.h"
#include "ui/date_picker.h"
#include "ui/digits_line_edit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <algorithm>
#include <limits>

namespace records {
namespace {

// Of a text in a field: what the column does not take is refused by the save, and told; nothing of
// a long text is cut away unseen.
constexpr int NoLimit = std::numeric_limits<int>::max();

// A text that is longer than the field is seen by its beginning.
void showFromStart(QLineEdit& field, const storage::Value& value)
{
    field.setText(value.toText());
    field.setCursorPosition(0);
}

} // namespace

template <typename Field> void BoundFields::judged(Field* field)
{
    m_judged.push_back({[field] { return field->judge(); },
                        [field](core::Messages& messages) { field->checkOnLeaving(messages); }});
}

void BoundFields::bind(QLineEdit* field, const QString& column)
{
    field->setMaxLength(NoLimit);
    // A pasted text may have line ends in a field of one line too.
    m_bound.push_back({field, column,
                       [field](const storage::Value& value) { showFromStart(*field, value); },
                       [field] { return storage::Value(text::toStoredLines(field->text())); }});
}

void BoundFields::bind(ui::DigitsLineEdit* field, const QString& column)
{
    judged(field);
    m_bound.push_back({field, column,
                       [field](const storage::Value& value) { showFromStart(*field, value); },
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
    if (field->lineEdit())
        field->lineEdit()->setMaxLength(NoLimit);
    const auto show = [field](const storage::Value& value) {
        const QString text = value.toText();
        constexpr auto Exactly = Qt::MatchFixedString | Qt::MatchCaseSensitive;
        if (!field->isEditable() && field->findText(text, Exactly) < 0)
            field->addItem(text);
        field->setCurrentText(text);
        if (field->lineEdit())
            field->lineEdit()->setCursorPosition(0);
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

void BoundFields::bind(ui::DatePicker* field, const QString& column, QCheckBox* only)
{
    judged(field);
    const auto show = [field, only](const storage::Value& value) {
        const QString text = value.toText();
        const std::optional<QDate> day = text::parseDate(text);
        if (only)
            only->setChecked(!text.isEmpty());
        if (day)
            field->setDate(*day);
        field->showStored(day ? QString() : text);
    };
    const auto entered = [field, only] {
        const bool has = !only || only->isChecked();
        const QString& stored = field->storedText();
        return storage::Value(!has                   ? QString()
                                  : stored.isEmpty() ? text::formatDate(field->date())
                                                     : stored);
    };
    m_bound.push_back({field, column, show, entered});
}

void BoundFields::bind(ui::TimePicker* field, const QString& column)
{
    judged(field);
    const auto show = [field](const storage::Value& value) {
        const QString text = value.toText();
        const std::optional<QTime> time = text::parseTime(text);
        if (time)
            field->setTime(*time);
        field->showStored(time ? QString() : text);
    };
    const auto entered = [field] {
        const QString& stored = field->storedText();
        return storage::Value(stored.isEmpty() ? text::formatTime(field->time()) : stored);
    };
    m_bound.push_back({field, column, show, entered});
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
    for (const Judged& field : m_judged)
        field.checkOnLeaving(messages);
}

bool BoundFields::judgeNumbers() const
{
    return std::ranges::all_of(m_judged, [](const Judged& field) { return field.judge(); });
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
