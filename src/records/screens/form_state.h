#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <QVariant>

class QWidget;

namespace records {

// What stands in the fields of a form, by the fields' object names.
class FormState {
public:
    // The fields that the form has now, those in `leftOut` not among them.
    static FormState of(const QWidget& form, const QSet<const QWidget*>& leftOut = {});

    // Those of the fields that differ from another state of the same form.
    FormState changedFrom(const FormState& shown) const;
    // Puts everything back into the fields; a field that is not there is passed over.
    void applyTo(const QWidget& form) const;

    bool operator==(const FormState& other) const = default;

private:
    QMap<QString, QVariant> m_values;
};

} // namespace records
