#pragma once

#include "customer/data/customer_index.h"

#include <QList>
#include <QWidget>

#include <memory>

class QTreeWidgetItem;

namespace Ui {
class kokyaku_index;
}

namespace customer {

// The index of customers (TreeView1).
class kokyaku_index : public QWidget {
    Q_OBJECT

public:
    explicit kokyaku_index(QWidget* parent = nullptr);
    ~kokyaku_index() override;

    // `settings` as for all panes: those of the open file, which stay the main screen's.
    void initialize(CustomerFile& file, const Settings& settings);
    // Chooses the root (0: all customers) or a node just below it (from 1 on); the root when there
    // is no such node, or one that shows nothing.
    void chooseNode(int number);
    // The number of the chosen node, or of the one just below the root that it belongs to.
    int chosenNode() const;
    // Reads the stored searches again; the chosen node stays chosen, and is given anew when it now
    // asks for something else.
    void reload();

    QWidget* tree();

signals:
    // A node was chosen that shows these customers.
    void chosen(const customer::ListFilter& filter);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fill();
    void addNode(QTreeWidgetItem* item, const IndexNode& node);
    void choose(QTreeWidgetItem* item);
    std::optional<ListFilter> filterOf(const QTreeWidgetItem* item) const;

    std::unique_ptr<Ui::kokyaku_index> m_ui;
    CustomerFile* m_file = nullptr;
    const Settings* m_settings = nullptr;
    const QTreeWidgetItem* m_beforePress = nullptr; // chosen when the mouse button went down
    std::optional<ListFilter> m_given;
    QList<IndexNode> m_nodes; // by the number that an item keeps
};

} // namespace customer
