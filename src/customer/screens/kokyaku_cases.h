#pragma once

#include "core/data/record_key.h"
#include "customer/data/case_index.h"
#include "customer/data/customer_file.h"
#include "customer/data/list_filter.h"
#include "customer/data/settings.h"

#include <QWidget>

#include <memory>

class QAbstractButton;
class QAction;
class QMenu;
class QTreeWidgetItem;

namespace Ui {
class kokyaku_cases;
}
namespace ui {
class ListView;
class OrderedList;
} // namespace ui

namespace customer {

// The cases (ListView2) of the chosen customer, or those that the case index (TreeView2) chooses.
class kokyaku_cases : public QWidget {
    Q_OBJECT

public:
    explicit kokyaku_cases(QWidget* parent = nullptr);
    ~kokyaku_cases() override;

    void initialize(CustomerFile& file, const Settings& settings);
    // Shows the cases of a customer; the index goes to 個々.
    void showCasesOf(const core::RecordKey& customer, const QString& name);
    // Shows one case alone (of a log).
    void showCase(const core::RecordKey& ofCase);
    // Shows the cases registered on or planned for a day, or those that hold a text.
    void showDay(QDate day);
    void showText(const QString& text);
    // Chooses a node of the index by its number; none when there is no such node.
    void chooseNode(int number);
    // The number of the chosen node; 個々 (0) when what is shown is no node's.
    int chosenNode() const;
    // Shows the dates that 件名表示日 says.
    void showDateColumns();
    // Goes back to 個々 with nothing selected, as after a case was deleted.
    void returnToSingle();
    // No customer is chosen any more: the cases of a single one go.
    void forgetCustomer();
    void refill();
    // The captions of this customer's cases bear its new name.
    void renameCustomer(const core::RecordKey& customer, const QString& name);
    // Empties the list and its counters.
    void clear();

    core::RecordKey currentKey() const;
    QString currentTitle() const;
    QAbstractButton& option();
    ui::ListView& view();
    // What the context menu holds besides what every list offers.
    void setActions(const QList<QAction*>& actions) { m_actions = actions; }
    // The choices of the case index, to be chosen by key or by menu.
    void addViewsTo(QMenu& menu);

signals:
    // Another case was chosen, or none.
    void currentChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ListView2_ItemCheck(int row, bool print);
    void chooseView(QTreeWidgetItem* item);
    void showOutsideIndex(const ListFilter& filter);
    void showFilter(const ListFilter& filter);
    ListFilter filterOfView(CaseView view) const;
    void showMenu(const QPoint& place);

    std::unique_ptr<Ui::kokyaku_cases> m_ui;
    std::unique_ptr<ui::OrderedList> m_list;
    CustomerFile* m_file = nullptr;
    const Settings* m_settings = nullptr;
    const QTreeWidgetItem* m_beforePress = nullptr; // chosen when the mouse button went down
    CaseView m_view = CaseView::Single;
    QList<QAction*> m_actions;
    ListFilter m_filter;
    ListFilter m_ofCustomer; // the cases of the customer chosen last; without a condition: none
};

} // namespace customer
