#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class msgboxf;
}

namespace core {

struct Shared;

// The small confirmation dialog: leaves "1" in DialogAnswer when its first button closed it, else
// "0".
class msgboxf : public QDialog {
    Q_OBJECT

public:
    msgboxf(Shared& shared, const QString& question, QWidget* parent = nullptr);
    ~msgboxf() override;

private:
    void Command1_Click();

    std::unique_ptr<Ui::msgboxf> m_ui;
    Shared& m_shared;
};

} // namespace core
