#pragma once

#include "core/data/record_key.h"
#include "customer/data/customer_file.h"
#include "customer/data/list_filter.h"
#include "customer/data/settings.h"

#include <QWidget>

#include <memory>

class QAbstractButton;

namespace Ui {
class kokyaku_logs;
}
namespace ui {
class ListView;
class OrderedList;
} // namespace ui

namespace customer {

// The log entries of the chosen case (ListView3).
class kokyaku_logs : public QWidget {
    Q_OBJECT

public:
    explicit kokyaku_logs(QWidget* parent = nullptr);
    ~kokyaku_logs() override;

    void initialize(CustomerFile& file, const Settings& settings);
    void showLogsOf(const core::RecordKey& ofCase, const QString& title);
    // Whether a case's entries are shown, be they none.
    bool isShown() const { return m_shown; }
    // Empties the list and its counters.
    void clear();
    void refill();

    core::RecordKey currentKey() const;
    QAbstractButton& option();
    ui::ListView& view();
    // What the context menu holds besides what every list offers.
    void setActions(const QList<QAction*>& actions) { m_actions = actions; }

signals:
    // Another entry was chosen, or none.
    void currentChanged();

private:
    void showMenu(const QPoint& place);

    std::unique_ptr<Ui::kokyaku_logs> m_ui;
    std::unique_ptr<ui::OrderedList> m_list;
    ListFilter m_filter;
    bool m_shown = false;
    QList<QAction*> m_actions;
};

} // namespace customer
