#pragma once

#include "customer/data/customer_file.h"
#include "ui/paged_list_model.h"

#include <QWidget>

#include <memory>

namespace Ui {
class kokyaku_schedule;
}
namespace ui {
class ListView;
}

namespace customer {

// The calendar that marks the days with entries, and the schedule from the chosen day on
// (ListView8).
class kokyaku_schedule : public QWidget {
    Q_OBJECT

public:
    explicit kokyaku_schedule(QWidget* parent = nullptr);
    ~kokyaku_schedule() override;

    void initialize(CustomerFile& file);
    // Reads marks and entries again; the chosen day stays.
    // Whether the list of entries is shown (予定表示).
    void showEntries(bool shown);
    void refill();
    void clear();
    QWidget* calendar();
    ui::ListView& view();
    QDate day() const;
    // What the context menu holds.
    void setActions(const QList<QAction*>& actions) { m_actions = actions; }

private:
    void showMenu(const QPoint& place);
    void showDay();
    void markDays();

    std::unique_ptr<Ui::kokyaku_schedule> m_ui;
    ui::PagedListModel m_model;
    CustomerFile* m_file = nullptr;
    QList<QAction*> m_actions;
};

} // namespace customer
