#pragma once

#include "records/screens/edit_form.h"

#include <memory>

namespace Ui {
class upkenmei;
}

namespace customer {

// Adds, changes and deletes a case of a customer.
class upkenmei : public records::EditForm {
    Q_OBJECT

public:
    upkenmei(const records::Desk& desk, const records::Opening& opening, QWidget* parent);
    ~upkenmei() override;

private:
    void chkYotei_Click(bool planned);

    std::unique_ptr<Ui::upkenmei> m_ui;
};

} // namespace customer
