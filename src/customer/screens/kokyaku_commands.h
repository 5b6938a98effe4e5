#pragma once

#include "records/screens/record_commands.h"

namespace customer {

// What the customer screen offers for its records: rows of a table.
class KokyakuCommands : public records::RecordCommands {
    Q_OBJECT

public:
    KokyakuCommands(const records::Desk& desk, const records::Selection& selection,
                    QWidget* window);

    // Opened by double-click or Enter.
    void editCustomer();
    void editCase();
    void editLog();
    void editSchedule(const core::RecordKey& key);

signals:
    // A record of one kind was added, changed or deleted: the lists are to be read again.
    void customerWritten();
    void caseWritten();
    void logWritten();
    void scheduleWritten();
    // It was deleted; given before.
    void customerRemoved();
    void caseRemoved();

private:
    void addCustomerLike();
    void addNewCase();
    void addCaseFromCases();
    void openNewCase(const core::RecordKey& customer, const QString& name);
    void addLog(const QString& captionEnd);
    void addSchedule();
    // Opens a form and passes its `written` on.
    records::EditForm* openFor(void (KokyakuCommands::*told)(), records::EditForm* form);

    const records::Desk& m_desk;
    const records::Selection& m_selected;
};

} // namespace customer
