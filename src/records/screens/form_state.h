#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <QVariant>

class QWidget;

namespace records {

// What stands in the fields of a form, by the fields' object names. Fields whose text is not shown
// (passwords) are no part of it.
class FormState {
public:
    // The fields that the form has now, those in `leftOut` not among them.
    static FormState of(const QWidget& form, const QSet<const QWidget*>& leftOut = {});
    // What toText() gave; what is no such text gives a state without fields.
    static FormState fromText(const QString& text);
    // Calls a slot of the receiver ("slot()") whenever a field's content changes.
    static void watch(const QWidget& form, QObject* receiver, const char* slot);

    bool isEmpty() const { return m_values.isEmpty(); }
    QString toText() const;

    // Those of the fields that differ from another state of the same form.
    FormState changedFrom(const FormState& shown) const;
    // Those that another state does not have.
    FormState without(const FormState& other) const;
    // Puts everything back into the fields; a field that is not there is passed over. As typed: it
    // is judged like what the user has typed.
    enum class As { Shown, Typed };
    void applyTo(const QWidget& form, As as = As::Shown) const;

    bool operator==(const FormState& other) const = default;

private:
    QMap<QString, QVariant> m_values;
};

} // namespace records
