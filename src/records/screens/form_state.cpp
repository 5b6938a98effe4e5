#include "records/screens/form_state.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace records {
namespace {

// The property that holds a field's content; null for a widget that is no field of its own.
const char* contentOf(const QWidget& widget)
{
    const QWidget* const parent = widget.parentWidget();
    if (qobject_cast<const QAbstractSpinBox*>(parent) || qobject_cast<const QComboBox*>(parent))
        return nullptr;
    if (qobject_cast<const QLineEdit*>(&widget))
        return "text";
    if (qobject_cast<const QPlainTextEdit*>(&widget))
        return "plainText";
    if (qobject_cast<const QCheckBox*>(&widget))
        return "checked";
    if (qobject_cast<const QComboBox*>(&widget))
        return "currentText";
    if (qobject_cast<const QDateTimeEdit*>(&widget))
        return "dateTime";
    return nullptr;
}

} // namespace

FormState FormState::of(const QWidget& form, const QSet<const QWidget*>& leftOut)
{
    FormState state;
    for (const QWidget* const field : form.findChildren<QWidget*>()) {
        const char* const content = contentOf(*field);
        if (content && !leftOut.contains(field))
            state.m_values.insert(field->objectName(), field->property(content));
    }
    return state;
}

FormState FormState::changedFrom(const FormState& shown) const
{
    FormState changed;
    for (auto value = m_values.cbegin(); value != m_values.cend(); ++value) {
        if (shown.m_values.value(value.key()) != value.value())
            changed.m_values.insert(value.key(), value.value());
    }
    return changed;
}

void FormState::applyTo(const QWidget& form) const
{
    for (auto value = m_values.cbegin(); value != m_values.cend(); ++value) {
        auto* const field = form.findChild<QWidget*>(value.key());
        const char* const content = field ? contentOf(*field) : nullptr;
        if (!content)
            continue;
        if (auto* const text = qobject_cast<QLineEdit*>(field))
            text->setText(value->toString()); // not setProperty: it would not be undoable as typed
        else
            field->setProperty(content, *value);
    }
}

} // namespace records
