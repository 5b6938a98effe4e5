#pragma once

#include "customer/data/customers.h"
#include "records/screens/edit_form.h"

#include <array>
#include <memory>

class QLineEdit;

namespace Ui {
class upkokyaku;
}

namespace customer {

// Adds, changes and deletes a customer.
class upkokyaku : public records::EditForm {
    Q_OBJECT

public:
    // What the screen is opened for.
    struct Opening {
        bool adding = true;
        core::RecordKey key;   // of the customer that is changed; none while adding
        CustomerFields fields; // what the fields show first
        qint64 like = 0;       // update ID of the customer that is copied; 0: none
    };

    upkokyaku(CustomerFile& file, records::Drafts& drafts, const Opening& opening, QWidget* parent);
    ~upkokyaku() override;

protected:
    records::SaveResult save() override;
    records::DeleteResult remove() override;
    QWidget* refusedField() override;

private:
    void fill(const CustomerFields& fields);
    CustomerFields fields() const;

    std::unique_ptr<Ui::upkokyaku> m_ui;
    CustomerFile& m_file;
    Opening m_opening;
    std::array<QLineEdit*, Notes> m_txtkokyaku; // all but 備考
};

} // namespace customer
