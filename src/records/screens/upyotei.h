#pragma once

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
    // A new entry is proposed for the opening's day. `name`: the screen's.
    upyotei(const Desk& desk, const Opening& opening, const QString& name, QWidget* parent);

private:
    std::unique_ptr<Ui::upyotei> m_ui;
};

} // namespace records
