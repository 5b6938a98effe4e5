#pragma once

#include "records/data/index_node.h"

#include <QWidget>

#include <memory>

class QMenu;
class QTreeWidget;
class QTreeWidgetItem;

namespace Ui {
class index_pane;
}

namespace records {

// The index beside the lists of a main screen: choosing a node shows what its filter says. A tree
// below one root, or the nodes themselves.
class IndexPane : public QWidget {
    Q_OBJECT

public:
    explicit IndexPane(QWidget* parent = nullptr);
    ~IndexPane() override;

    // What the filters depend on now.
    using Context = std::function<IndexContext()>;
    // To be called once; `name` and `title` are the tree's, for programs and for people.
    void initialize(const QString& name, const QString& title, const Context& context);
    // Shows these nodes anew. The chosen node stays chosen, found by its captions, and is given
    // again when it now asks for something else.
    void setNodes(const QList<IndexNode>& nodes);

    // By its number the chosen node is found again when the file is opened next: the number of a
    // node below the root, and a hundred times that of a node below it; of a list of nodes their
    // own. 0 is the root, and no node.
    int chosenNumber() const;
    // Chooses a node, the first where there is no such one or it shows nothing.
    void chooseNumber(int number);
    // Marks the first node, or none, without showing what it stands for.
    void markFirst();
    void markNone();
    // What was chosen last could not be shown: the node before it is marked again.
    void goBack();
    // The nodes as entries of a menu, the chosen one marked.
    void addTo(QMenu& menu);

    QTreeWidget* tree();

signals:
    // A node was chosen, or clicked again, that shows this in a list of the screen.
    void chosen(const records::ListFilter& filter, int list);
    // A node was chosen that has nothing to show as yet.
    void choseNothing(int list);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fill(const QList<IndexNode>& nodes);
    void addNode(QTreeWidgetItem* item, const IndexNode& node);
    void choose(QTreeWidgetItem* item);
    void mark(QTreeWidgetItem* item);
    const IndexNode& nodeOf(const QTreeWidgetItem* item) const;
    std::optional<ListFilter> filterOf(const QTreeWidgetItem* item) const;
    QTreeWidgetItem* itemOf(int number) const;

    std::unique_ptr<Ui::index_pane> m_ui;
    Context m_context;
    QList<IndexNode> m_nodes;                       // by the number that an item keeps
    const QTreeWidgetItem* m_beforePress = nullptr; // chosen when the mouse button went down
    QTreeWidgetItem* m_shown = nullptr;             // the node that was chosen last
    std::optional<ListFilter> m_given;              // what it asked for
    // The node before it, and what that had asked for.
    QTreeWidgetItem* m_shownBefore = nullptr;
    std::optional<ListFilter> m_givenBefore;
};

} // namespace records
