#pragma once

#include "records/screens/edit_form.h"

#include <memory>

namespace Ui {
class upkokyaku;
}

namespace customer {

// Adds, changes and deletes a customer.
class upkokyaku : public records::EditForm {
    Q_OBJECT

public:
    upkokyaku(const records::Desk& desk, const records::Opening& opening, QWidget* parent);
    ~upkokyaku() override;

private:
    std::unique_ptr<Ui::upkokyaku> m_ui;
};

} // namespace customer
