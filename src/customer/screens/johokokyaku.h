#pragma once

#include "customer/data/customers.h"
#include "customer/data/settings.h"
#include "ui/paged_list_model.h"

#include <QWidget>

#include <array>
#include <memory>

class QLabel;

namespace Ui {
class johokokyaku;
}

namespace customer {

struct Desk;
class ShortcutDesk;

// The floating window with all details of the customer that is selected on the main screen.
class johokokyaku : public QWidget {
    Q_OBJECT

public:
    johokokyaku(const Desk& desk, const Settings& settings, QWidget* parent);
    ~johokokyaku() override;

    // Fills the window from a customer. False when the customer is no longer there; the window then
    // shows what it showed.
    bool showCustomer(const core::RecordKey& key);
    // Fills it from a case: its customer, and the case's logs on the log tab.
    bool showCase(const core::RecordKey& key);
    // Moves the window to the place that the settings keep.
    void moveToKeptPlace();
    // Reads what is shown again; closes when the customer has gone.
    void refill();

signals:
    // The user closed the window.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void MAIL_Click();
    void URL_Click();
    void UserText_Click();
    void addInfoRows();
    void fill(const KeptCustomer& kept);
    void showLogs(const core::RecordKey& ofCase, const QString& title);
    void openTarget(const QString& target);

    std::unique_ptr<Ui::johokokyaku> m_ui;
    const Desk& m_desk;
    const Settings& m_settings;
    std::unique_ptr<ShortcutDesk> m_shortcuts;
    ui::PagedListModel m_items; // their screens come later: the places are kept, empty
    ui::PagedListModel m_deliveries;
    ui::PagedListModel m_logs;
    std::array<QLabel*, CustomerFieldCount> m_values{};
    KeptCustomer m_kept;
    core::RecordKey m_case; // whose logs are shown; none: no case was chosen
};

} // namespace customer
