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
    void editSchedule();
    // Asked for in a list.
    void removeFrom(int list);

private:
    void addCustomerLike();
    void addNewCase();
    void addCaseFromCases();
    void openNewCase(const core::RecordKey& customer, const QString& name);
    void addLog(const QString& captionEnd);
    void addSchedule();
    const records::Desk& m_desk;
    const records::Selection& m_selected;
};

} // namespace customer
