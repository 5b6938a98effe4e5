#pragma once

#include "customer/data/logs.h"
#include "ui/edit_form.h"

#include <memory>

namespace Ui {
class upkrog;
}

namespace customer {

// Adds, changes and deletes a log entry of a case.
class upkrog : public ui::EditForm {
    Q_OBJECT

public:
    // A new entry of a case.
    upkrog(CustomerFile& file, ui::Drafts& drafts, const core::RecordKey& ofCase, QWidget* parent);
    // An entry that is there, with the key that the list showed.
    upkrog(CustomerFile& file, ui::Drafts& drafts, const KeptLog& kept, QWidget* parent);
    ~upkrog() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    core::SaveResult save() override;
    core::DeleteResult remove() override;

private:
    upkrog(CustomerFile& file, ui::Drafts& drafts, QWidget* parent, bool adding);
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
