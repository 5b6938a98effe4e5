#pragma once

#include "customer/data/logs.h"
#include "records/screens/edit_form.h"

#include <memory>

namespace Ui {
class upkrog;
}

namespace customer {

// Adds, changes and deletes a log entry of a case.
class upkrog : public records::EditForm {
    Q_OBJECT

public:
    // A new entry of a case.
    upkrog(CustomerFile& file, records::Drafts& drafts, const core::RecordKey& ofCase, QWidget* parent);
    // An entry that is there, with the key that the list showed.
    upkrog(CustomerFile& file, records::Drafts& drafts, const KeptLog& kept, QWidget* parent);
    ~upkrog() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    records::SaveResult save() override;
    records::DeleteResult remove() override;

private:
    upkrog(CustomerFile& file, records::Drafts& drafts, QWidget* parent, bool adding);
    void fillCombo2();
    void Combo2_GotFocus();
    LogFields fields() const;

    std::unique_ptr<Ui::upkrog> m_ui;
    CustomerFile& m_file;
    core::RecordKey m_case; // while adding
    KeptLog m_kept;         // while changing
    LogFields m_filled;     // what the fields showed of it
};

} // namespace customer
