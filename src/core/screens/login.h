#pragma once

#include <QDialog>

#include <array>
#include <memory>

class QLineEdit;

namespace Ui {
class login;
}

namespace core {

class ScreenFlow;
struct Shared;

// The administrator's login: leads to the administration screen, or back to the menu.
class login : public QDialog {
    Q_OBJECT

public:
    login(Shared& shared, ScreenFlow& flow, QWidget* parent = nullptr);
    ~login() override;

private:
    void Command1_Click();
    void Form_Unload();

    std::unique_ptr<Ui::login> m_ui;
    Shared& m_shared;
    ScreenFlow& m_flow;
    std::array<QLineEdit*, 2> m_Text1; // name, password
    bool m_loggedIn = false;
};

} // namespace core
