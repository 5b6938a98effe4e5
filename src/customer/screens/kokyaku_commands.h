#pragma once

#include "core/data/record_key.h"
#include "records/data/schedule.h"
#include "customer/data/case_list.h"
#include "customer/screens/desk.h"

#include <QDate>
#include <QObject>

#include <functional>

class QAction;
class QMenu;

namespace records {
class EditForm;
}

namespace customer {

// What is selected on the main screen; keys are none where nothing is.
struct Selection {
    core::RecordKey customer;
    QString customerName;
    core::RecordKey ofCase;
    QString caseTitle;
    core::RecordKey log;
    QDate day; // of the calendar
};

// What the menus of the lists and the tool bar share, under the menus' names.
struct CommandActions {
    QAction* MenuUserListKyakuAdd = nullptr;
    QAction* MenuUserListKyakuSansyoAdd = nullptr;
    QAction* MenuUserListKenAdd = nullptr;
    QAction* MenuKenListKenAdd = nullptr;
    QAction* MenuKenListRogAdd = nullptr;
    QAction* MenuRogListAdd = nullptr;
    QAction* MenuYoteiAdd = nullptr;
    QAction* MenuUserListKyakuEdit = nullptr;
    QAction* MenuKenListKenEdit = nullptr;
    QAction* MenuRogListEdit = nullptr;
};

// Opens the edit screens of the main screen's records. Each opens on the record as the lists show
// it, so that a change made elsewhere since then is noticed when it is saved.
class KokyakuCommands : public QObject {
    Q_OBJECT

public:
    KokyakuCommands(const Desk& desk, std::function<Selection()> selection, QWidget* window);

    // While nothing is selected the actions that need it are switched off.
    void showSelection();

    // Opened by double-click or Enter.
    void editCustomer();
    void editCase();
    void editLog();
    void editSchedule(const core::RecordKey& key);

    const CommandActions& actions() const { return m_actions; }

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
    QAction* action(const QString& name, const QString& caption, void (KokyakuCommands::*run)());
    void addNewCustomer();
    void addCustomerLike();
    void addNewCase();
    void addCaseFromCases();
    void openNewCase(const core::RecordKey& customer, const QString& name);
    void addLogFromCases();
    void addLogFromLogs();
    void addSchedule();
    void openLogForm(const QString& caption);
    // Shows a form over the main screen; it deletes itself when it closes.
    void open(records::EditForm* form, const QString& caption, void (KokyakuCommands::*told)());

    Desk m_desk;
    std::function<Selection()> m_selection;
    QWidget* m_window;
    CommandActions m_actions;
};

} // namespace customer
