#pragma once

#include "core/data/schedule.h"
#include "ui/edit_form.h"

#include <memory>

namespace Ui {
class upyotei;
}

namespace customer {

// Adds, changes and deletes a schedule entry. Serves both kinds of data file: upkyotei edits the
// schedule of a customer file, upcyotei that of a repair file.
class upyotei : public ui::EditForm {
    Q_OBJECT

public:
    ~upyotei() override;

protected:
    // A new entry, proposed for a day.
    upyotei(core::DataFile& file, ui::Drafts& drafts, QDate day, QWidget* parent);
    // An entry that is there, with the key that the list showed.
    upyotei(core::DataFile& file, ui::Drafts& drafts, const core::KeptScheduleEntry& kept,
            QWidget* parent);

    core::SaveResult save() override;
    core::DeleteResult remove() override;
    QWidget* refusedField() override;

private:
    upyotei(core::DataFile& file, ui::Drafts& drafts, QWidget* parent, QDate day, bool adding);
    core::ScheduleEntry entry() const;

    std::unique_ptr<Ui::upyotei> m_ui;
    core::DataFile& m_file;
    core::KeptScheduleEntry m_kept; // while changing
    core::ScheduleEntry m_filled;   // what the fields showed of it
};

} // namespace customer
