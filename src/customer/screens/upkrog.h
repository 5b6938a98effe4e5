#pragma once

#include "records/screens/log_form.h"

#include <memory>

namespace Ui {
class upkrog;
}

namespace customer {

// Adds, changes and deletes a log entry of a case.
class upkrog : public records::LogForm {
    Q_OBJECT

public:
    upkrog(const records::Desk& desk, const records::Opening& opening, QWidget* parent);
    ~upkrog() override;

private:
    std::unique_ptr<Ui::upkrog> m_ui;
};

} // namespace customer
