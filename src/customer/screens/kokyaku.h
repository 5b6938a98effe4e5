#pragma once

#include "customer/data/customer_file.h"
#include "customer/data/settings.h"
#include "customer/screens/desk.h"

#include <QMainWindow>

#include <memory>

class QMenu;

namespace Ui {
class kokyaku;
}

namespace customer {

class KokyakuCommands;
class KokyakuWindows;
struct Selection;

// The main screen of the customer side: index and schedule on the left, customers, their cases and
// the cases' logs on the right. It owns the open data file and closes it when it is closed itself.
class kokyaku : public QMainWindow {
    Q_OBJECT

public:
    // `file` is open. What is handed in must live longer than the screen.
    kokyaku(std::unique_ptr<CustomerFile> file, core::Shared& shared, core::Opener& opener,
            ui::FileChooser& files, records::Drafts& drafts, ui::UserSettings& userSettings,
            QWidget* parent = nullptr);
    ~kokyaku() override;

    // Reads all lists again after something was written: counters, customers, cases, logs.
    void refillLists();

signals:
    // The screen was closed and its file with it: the menu is to be shown again.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Load();
    void Form_Unload();
    void Toolbar1_ButtonClick(QAction* button);
    void customerChosen(int column = -1);
    void caseChosen(int column = -1);
    void logChosen(int column = -1);
    void MenuKanrneHyouzi_Click();
    void MenuRogKenHyouzi_Click();
    void findCases();

    void refillCustomersAndCases();
    Selection selection() const;
    void connectPanes();
    void connectCommands();
    void connectWindows();
    void addMenus();
    QMenu* displayMenu();
    QAction* entryFor(QAction& command, const QString& name);
    QList<QAction*> laterScreens();
    void addKeys();
    void showStatus();
    void restoreDesk();
    void saveDesk() const;
    void restoreView();
    void saveView();

    std::unique_ptr<Ui::kokyaku> m_ui;
    std::unique_ptr<CustomerFile> m_file;
    Desk m_desk;
    Settings m_settings;
    QAction* m_casesOfCustomer = nullptr; // MenuKenHyouzi
    QAction* m_caseOfLog = nullptr;       // MenuRogKenHyouzi
    KokyakuCommands* m_commands = nullptr;
    KokyakuWindows* m_windows = nullptr;
};

} // namespace customer
