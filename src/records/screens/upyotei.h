#pragma once

#include "records/data/schedule.h"
#include "records/screens/edit_form.h"

#include <memory>

namespace Ui {
class upyotei;
}

namespace records {

// Adds, changes and deletes a schedule entry. Serves both kinds of data file: upkyotei edits the
// schedule of a customer file, upcyotei that of a repair file.
class upyotei : public EditForm {
    Q_OBJECT

public:
    ~upyotei() override;

protected:
    // A new entry, proposed for a day.
    upyotei(DataFile& file, Drafts& drafts, QDate day, QWidget* parent);
    // An entry that is there, with the key that the list showed.
    upyotei(DataFile& file, Drafts& drafts, const KeptScheduleEntry& kept,
            QWidget* parent);

    SaveResult save() override;
    DeleteResult remove() override;
    QWidget* refusedField() override;

private:
    upyotei(DataFile& file, Drafts& drafts, QWidget* parent, QDate day, bool adding);
    ScheduleEntry entry() const;

    std::unique_ptr<Ui::upyotei> m_ui;
    DataFile& m_file;
    KeptScheduleEntry m_kept; // while changing
    ScheduleEntry m_filled;   // what the fields showed of it
};

} // namespace records
