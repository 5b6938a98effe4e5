#pragma once

#include "core/data/registry.h"

#include <QDialog>

#include <memory>

namespace Ui {
class saiteki;
}

namespace core {

class ScreenFlow;
struct Shared;

// The optimisation screen: compacts one registered data file at a time.
class saiteki : public QDialog {
    Q_OBJECT

public:
    saiteki(Shared& shared, ScreenFlow& flow, QWidget* parent = nullptr);
    ~saiteki() override;

private:
    void Command1_Click();

    std::unique_ptr<Ui::saiteki> m_ui;
    Shared& m_shared;
    QList<DataFileEntry> m_entries; // as listed
};

} // namespace core
