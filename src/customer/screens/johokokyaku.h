#pragma once

#include "records/data/record_table.h"
#include "records/data/settings.h"
#include "records/screens/detail_window.h"
#include "ui/paged_list_model.h"

#include <memory>
#include <vector>

class QLabel;

namespace records {
struct Desk;
class RelatedFilesList;
class Selection;
} // namespace records

namespace Ui {
class johokokyaku;
}

namespace customer {

// The floating window with all details of the customer that is selected on the main screen.
class johokokyaku : public records::DetailWindow {
    Q_OBJECT

public:
    // All of it lives longer.
    johokokyaku(const records::Desk& desk, const records::Settings& settings,
                const records::Selection& selection, QWidget* parent);
    ~johokokyaku() override;

    // A customer, with the logs of the selected case on the log tab where it is the customer's, or
    // the customer of a case with the case's logs.
    bool showRecord(int list, const core::RecordKey& key) override;
    void refill() override;

private:
    bool showCustomer(const core::RecordKey& key);
    bool showCase(const core::RecordKey& key);
    void MAIL_Click();
    void URL_Click();
    void UserText_Click();
    void addInfoRows();
    void fill(const records::Record& customer);
    void showLogs(const core::RecordKey& ofCase, const QString& title);
    void openTarget(const QString& target);

    std::unique_ptr<Ui::johokokyaku> m_ui;
    const records::Desk& m_desk;
    const records::Settings& m_settings;
    const records::Selection& m_selection;
    std::unique_ptr<records::RelatedFilesList> m_shortcuts;
    ui::PagedListModel m_items; // their screens come later: the places are kept, empty
    ui::PagedListModel m_deliveries;
    ui::PagedListModel m_logs;
    std::vector<QLabel*> m_values; // one for each of the customer's texts
    records::Record m_kept;
    core::RecordKey m_case; // whose logs are shown; none: no case was chosen
};

} // namespace customer
