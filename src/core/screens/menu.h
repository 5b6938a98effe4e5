#pragma once

#include "core/data/data_kind.h"

#include <QStringList>
#include <QWidget>

#include <array>
#include <memory>

class QPushButton;

namespace Ui {
class menu;
}

namespace core {

class Opener;
class ScreenFlow;
enum class Screen;
struct Shared;

// The main menu, the program's home: closing it while EndOnMenuClose is set ends the program.
class menu : public QWidget {
    Q_OBJECT

public:
    menu(Shared& shared, ScreenFlow& flow, Opener& opener, QWidget* parent = nullptr);
    ~menu() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    static constexpr int ButtonCount = 8;

    void Command1_Click(int index);
    void Command1_MouseMove(int index);
    void Picture1_MouseMove();
    void tellMissing();
    void showHelp();
    // Close the menu without ending the program and show what follows. A screen that the program
    // lacks is told to the user, and the menu stays.
    void leaveFor(Screen screen);
    void leaveForChooser(DataKind kind);

    std::unique_ptr<Ui::menu> m_ui;
    Shared& m_shared;
    ScreenFlow& m_flow;
    Opener& m_opener;
    std::array<QPushButton*, ButtonCount> m_Command1;
    QStringList m_descriptions; // one for each button
};

} // namespace core
