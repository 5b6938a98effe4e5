#include "records/screens/form_state.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QPlainTextEdit>

namespace records {
namespace {

// The property that holds a field's content; null for a widget that is no field of its own.
const char* contentOf(const QWidget& widget)
{
    const QWidget* const parent = widget.parentWidget();
    if (qobject_cast<const QAbstractSpinBox*>(parent) || qobject_cast<const QComboBox*>(parent))
        return nullptr;
    if (const auto* const line = qobject_cast<const QLineEdit*>(&widget))
        return line->echoMode() == QLineEdit::Normal ? "text" : nullptr;
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

FormState FormState::without(const FormState& other) const
{
    FormState rest = *this;
    for (auto value = other.m_values.cbegin(); value != other.m_values.cend(); ++value)
        rest.m_values.remove(value.key());
    return rest;
}

void FormState::watch(const QWidget& form, QObject* receiver, const char* slot)
{
    const QMetaMethod called =
        receiver->metaObject()->method(receiver->metaObject()->indexOfSlot(slot));
    Q_ASSERT(called.isValid());
    for (const QWidget* const field : form.findChildren<QWidget*>()) {
        const char* const content = contentOf(*field);
        if (!content)
            continue;
        const QMetaObject& type = *field->metaObject();
        QObject::connect(field, type.property(type.indexOfProperty(content)).notifySignal(),
                         receiver, called);
    }
}

// Texts and ticks are what JSON knows; a moment is a list with its text.
QString FormState::toText() const
{
    QJsonObject fields;
    for (auto value = m_values.cbegin(); value != m_values.cend(); ++value) {
        if (value->userType() == QMetaType::QDateTime)
            fields.insert(value.key(), QJsonArray{value->toDateTime().toString(Qt::ISODateWithMs)});
        else
            fields.insert(value.key(), QJsonValue::fromVariant(*value));
    }
    return QString::fromUtf8(QJsonDocument(fields).toJson(QJsonDocument::Compact));
}

FormState FormState::fromText(const QString& text)
{
    FormState state;
    const QJsonObject fields = QJsonDocument::fromJson(text.toUtf8()).object();
    for (auto field = fields.begin(); field != fields.end(); ++field) {
        const QJsonValue value = field.value();
        if (value.isArray()) {
            state.m_values.insert(
                field.key(),
                QDateTime::fromString(value.toArray().first().toString(), Qt::ISODateWithMs));
        } else {
            state.m_values.insert(field.key(), value.toVariant());
        }
    }
    return state;
}

void FormState::applyTo(const QWidget& form, As as) const
{
    for (auto value = m_values.cbegin(); value != m_values.cend(); ++value) {
        auto* const field = form.findChild<QWidget*>(value.key());
        const char* const content = field ? contentOf(*field) : nullptr;
        if (!content)
            continue;
        field->setProperty(content, *value);
        if (auto* const line = qobject_cast<QLineEdit*>(field)) {
            line->setModified(as == As::Typed);
            line->setCursorPosition(0);
        }
    }
}

} // namespace records
