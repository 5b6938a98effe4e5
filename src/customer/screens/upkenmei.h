#pragma once

#include "customer/data/cases.h"
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
    // A new case of a customer.
    upkenmei(CustomerFile& file, records::Drafts& drafts, const core::RecordKey& customer,
             QWidget* parent);
    // A case that is there, with the key that the list showed.
    upkenmei(CustomerFile& file, records::Drafts& drafts, const KeptCase& kept, QWidget* parent);
    ~upkenmei() override;

protected:
    records::SaveResult save() override;
    records::DeleteResult remove() override;

private:
    upkenmei(CustomerFile& file, records::Drafts& drafts, QWidget* parent, bool adding);
    void chkYotei_Click(bool planned);
    void fill(const KeptCase& kept);
    CaseFields fields() const;

    std::unique_ptr<Ui::upkenmei> m_ui;
    CustomerFile& m_file;
    core::RecordKey m_customer; // while adding
    KeptCase m_kept;            // while changing
    CaseFields m_filled;        // what the fields showed of it
};

} // namespace customer
