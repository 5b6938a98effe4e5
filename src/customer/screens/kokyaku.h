#pragma once

#include "customer/data/customer_file.h"
#include "records/screens/main_shell.h"

#include <memory>

class QMenu;

namespace Ui {
class kokyaku;
}
namespace records {
class Drafts;
class ListPane;
struct Written;
} // namespace records

namespace customer {

class CaseView;
class KokyakuCommands;

// The main screen of the customer side: index and schedule on the left, customers, their cases and
// the cases' logs on the right. It owns the open data file and closes it when it is closed itself.
class kokyaku : public records::MainShell {
    Q_OBJECT

public:
    // `file` is open. What is handed in must live longer than the screen.
    kokyaku(std::unique_ptr<CustomerFile> file, core::Shared& shared, core::Opener& opener,
            ui::FileChooser& files, records::Drafts& drafts, ui::UserSettings& userSettings,
            QWidget* parent = nullptr);
    ~kokyaku() override;

    // Counters, customers, cases, logs, in this order.
    void refillLists() override;

protected:
    void refreshAll() override;
    void saveView() override;
    void Form_Unload() override;

private:
    void Form_Load();
    void makePanes();
    void fillIndex();
    void connectLists();
    void connectCommands();
    void customerChosen(bool another, int column);
    void caseChosen(bool another, int column);
    void logChosen(bool another, int column);
    void showCasesOfCustomer();
    void showLogsOfCase();
    void refillCustomersAndCases();
    void recordWritten(const records::Written& written);
    void showSaved(const records::Written& written);
    void goTo(const records::Written& written);
    records::ListPane* paneOf(int list);
    void bringListsForward();

    // kokyaku_menus.cpp
    void addMenus();
    QMenu* displayMenu();
    QList<QAction*> laterScreens();
    void findCases();
    void MenuKanrneHyouzi_Click();
    void MenuRogKenHyouzi_Click();

    void restoreView();

    std::unique_ptr<Ui::kokyaku> m_ui;
    std::unique_ptr<CustomerFile> m_file;
    CaseView* m_cases = nullptr;
    KokyakuCommands* m_commands = nullptr;
    records::FloatingWindows* m_windows = nullptr;
    bool m_refreshing = false; // the lists are read anew in a moment
};

} // namespace customer
