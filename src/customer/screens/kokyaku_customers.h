#pragma once

#include "core/data/record_key.h"
#include "customer/data/customer_file.h"
#include "customer/data/list_filter.h"
#include "customer/data/settings.h"

#include <QWidget>

#include <memory>

class QAbstractButton;

namespace Ui {
class kokyaku_customers;
}
namespace ui {
class ListView;
class OrderedList;
} // namespace ui

namespace customer {

// The customers of the chosen index node (ListView1).
class kokyaku_customers : public QWidget {
    Q_OBJECT

public:
    explicit kokyaku_customers(QWidget* parent = nullptr);
    ~kokyaku_customers() override;

    void initialize(CustomerFile& file, const Settings& settings);
    // Shows the customers of a filter.
    void showFilter(const ListFilter& filter);
    // Reads the list again; page, selection and scroll position stay.
    void refill();
    void clear();

    core::RecordKey currentKey() const;
    QString currentName() const;
    QAbstractButton& option();
    ui::ListView& view();
    // What the context menu holds besides what every list offers.
    void setActions(const QList<QAction*>& actions) { m_actions = actions; }

signals:
    // Another customer was chosen, or none.
    void currentChanged();

private:
    void ListView1_ItemCheck(int row, bool print);
    void showMenu(const QPoint& place);

    std::unique_ptr<Ui::kokyaku_customers> m_ui;
    std::unique_ptr<ui::OrderedList> m_list;
    CustomerFile* m_file = nullptr;
    ListFilter m_filter;
    QList<QAction*> m_actions;
};

} // namespace customer
