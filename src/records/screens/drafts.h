#pragma once

#include "records/screens/form_state.h"

#include <QHash>
#include <QString>

#include <optional>

namespace records {

// What forms of one data file held when they closed without saving it, as long as the program runs.
class Drafts {
public:
    void keep(const QString& form, const FormState& state) { m_states.insert(form, state); }
    void drop(const QString& form) { m_states.remove(form); }
    std::optional<FormState> find(const QString& form) const
    {
        const auto found = m_states.constFind(form);
        return found == m_states.cend() ? std::nullopt : std::optional(*found);
    }

private:
    QHash<QString, FormState> m_states;
};

} // namespace records
