#pragma once

#include "core/data/messages.h"
#include "records/data/draft_store.h"
#include "records/screens/desk.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

class QWidget;

namespace records {

class FormState;

// The draft of one open form: what stands there unsaved is written as it is typed, so that neither
// a closed window nor the end of the program takes it away.
class FormDraft : public QObject {
    Q_OBJECT

public:
    // `unsaved` gives what the form holds unsaved, without id and time; nullopt while there is
    // nothing. It is asked as long as this lives.
    FormDraft(const Desk& desk, std::function<std::optional<Draft>()> unsaved);

    // Asks about what was kept for a form, the latest first, until the user goes on with one (which
    // is given, and is from then on this form's draft) or leaves the rest for another time. What he
    // does not want is dropped, and so is, without a question, what would change nothing of what
    // the form shows: it was saved just before the program was killed.
    std::optional<Draft> offer(const QString& name, const FormState& shown);
    // From now on whatever is typed into the form is written at the latest two seconds later.
    void watch(const QWidget& form);
    // Brings what is kept to what the form holds, at once. False when there is nothing to keep.
    bool write();
    // The same for a form that closes; the user is told when something is kept.
    void close();

private slots:
    void typed();

private:
    core::Answer ask(const Draft& draft) const;
    void tellFailure() const;

    const Desk m_desk;
    std::function<std::optional<Draft>()> m_unsaved;
    Draft m_draft; // as it was written last
    QTimer m_timer;
};

// Says which drafts a data file has that was just opened.
void tellKeptDrafts(const Desk& desk);

} // namespace records
