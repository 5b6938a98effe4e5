#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class version;
}

namespace core {

class Messages;
class Opener;

// The version screen, shown modally over the menu.
class version : public QDialog {
    Q_OBJECT

public:
    version(Messages& messages, Opener& opener, QWidget* parent = nullptr);
    ~version() override;

private:
    void Command1_Click();
    void Command2_Click();

    std::unique_ptr<Ui::version> m_ui;
    Messages& m_messages;
    Opener& m_opener;
};

} // namespace core
