#include "records/screens/index_pane.h"

#include "ui/selection_colour.h"
#include "ui_index_pane.h"

#include <QEvent>
#include <QMenu>
#include <QSignalBlocker>

namespace records {
namespace {

constexpr int NodeNumber = Qt::UserRole;
constexpr int NextLevel = 100; // more than a node of the first level has siblings

// The captions from the top to a node, which find it again after the index was read anew.
QStringList pathOf(const QTreeWidgetItem* item)
{
    QStringList path;
    for (; item; item = item->parent())
        path.prepend(item->text(0));
    return path;
}

QTreeWidgetItem* childNamed(QTreeWidgetItem* parent, const QString& caption)
{
    for (int i = 0; i < parent->childCount(); ++i) {
        if (parent->child(i)->text(0) == caption)
            return parent->child(i);
    }
    return nullptr;
}

} // namespace

IndexPane::IndexPane(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::index_pane>())
{
    m_ui->setupUi(this);
    new ui::SelectionColour(*m_ui->tree);
    connect(m_ui->tree, &QTreeWidget::currentItemChanged, this, &IndexPane::choose);
    // Clicking the node that is chosen already runs its search again.
    m_ui->tree->viewport()->installEventFilter(this);
    connect(m_ui->tree, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        if (item == m_beforePress)
            choose(item);
    });
}

IndexPane::~IndexPane() = default;

void IndexPane::initialize(const QString& name, const QString& title, const Context& context)
{
    m_ui->tree->setObjectName(name);
    m_ui->tree->setAccessibleName(title);
    m_context = context;
}

void IndexPane::fill(const QList<IndexNode>& nodes)
{
    const QSignalBlocker blocker(m_ui->tree);
    m_ui->tree->clear();
    m_nodes.clear();
    m_shown = m_shownBefore = nullptr;
    for (const IndexNode& node : nodes)
        addNode(new QTreeWidgetItem(m_ui->tree), node);
    m_ui->tree->setRootIsDecorated(nodes.size() == 1);
    if (nodes.size() == 1)
        m_ui->tree->topLevelItem(0)->setExpanded(true);
}

void IndexPane::addNode(QTreeWidgetItem* item, const IndexNode& node)
{
    item->setText(0, node.caption);
    item->setData(0, NodeNumber, static_cast<int>(m_nodes.size()));
    m_nodes.append(node);
    m_nodes.last().children.clear();
    for (const IndexNode& child : node.children)
        addNode(new QTreeWidgetItem(item), child);
}

void IndexPane::setNodes(const QList<IndexNode>& nodes)
{
    QTreeWidgetItem* const root = m_ui->tree->invisibleRootItem();
    const QStringList path = pathOf(m_ui->tree->currentItem());
    QList<QStringList> expanded;
    for (int top = 0; top < root->childCount(); ++top) {
        for (int i = 0; i < root->child(top)->childCount(); ++i) {
            if (root->child(top)->child(i)->isExpanded())
                expanded.append(pathOf(root->child(top)->child(i)));
        }
    }
    fill(nodes);
    const auto find = [root](const QStringList& captions) {
        QTreeWidgetItem* item = root;
        for (const QString& caption : captions)
            item = item ? childNamed(item, caption) : nullptr;
        return captions.isEmpty() ? nullptr : item;
    };
    for (const QStringList& each : std::as_const(expanded)) {
        if (QTreeWidgetItem* const item = find(each))
            item->setExpanded(true);
    }
    QTreeWidgetItem* const item = find(path);
    if (!item)
        return;
    mark(item);
    m_shown = item;
    // The day or the settings may have changed what the node asks for.
    if (filterOf(item) != m_given)
        choose(item);
}

const IndexNode& IndexPane::nodeOf(const QTreeWidgetItem* item) const
{
    return m_nodes.at(item->data(0, NodeNumber).toInt());
}

// Of what is shown: a folder that shows nothing may be the current one.
int IndexPane::chosenNumber() const
{
    const QTreeWidgetItem* const root =
        m_ui->tree->topLevelItemCount() == 1 ? m_ui->tree->topLevelItem(0) : nullptr;
    int number = 0;
    for (const QTreeWidgetItem* item = m_shown; item && item != root; item = item->parent())
        number = number * NextLevel + nodeOf(item).number;
    return number;
}

QTreeWidgetItem* IndexPane::itemOf(int number) const
{
    const QTreeWidgetItem* level = m_ui->tree->invisibleRootItem();
    if (level->childCount() == 1)
        level = level->child(0);
    for (int i = 0; i < level->childCount(); ++i) {
        QTreeWidgetItem* const item = level->child(i);
        if (nodeOf(item).number != number % NextLevel)
            continue;
        for (int j = 0; j < item->childCount() && number >= NextLevel; ++j) {
            if (nodeOf(item->child(j)).number == number / NextLevel)
                return item->child(j);
        }
        return item;
    }
    return nullptr;
}

void IndexPane::chooseNumber(int number)
{
    QTreeWidgetItem* const item = itemOf(number);
    QTreeWidgetItem* const chosenItem =
        item && nodeOf(item).filter ? item : m_ui->tree->topLevelItem(0);
    if (chosenItem == m_ui->tree->currentItem())
        choose(chosenItem);
    else
        m_ui->tree->setCurrentItem(chosenItem);
}

void IndexPane::mark(QTreeWidgetItem* item)
{
    const QSignalBlocker blocker(m_ui->tree);
    m_ui->tree->setCurrentItem(item);
}

void IndexPane::markFirst()
{
    mark(m_ui->tree->topLevelItem(0));
    m_shown = m_ui->tree->topLevelItem(0);
}

void IndexPane::markNone()
{
    mark(nullptr);
    m_shown = nullptr;
}

void IndexPane::goBack()
{
    m_shown = m_shownBefore;
    m_given = m_givenBefore;
    mark(m_shown);
}

// The nodes may be made anew while the menu stands: each entry finds its own by its place.
void IndexPane::addTo(QMenu& menu)
{
    QList<QAction*> entries;
    for (int i = 0; i < m_ui->tree->topLevelItemCount(); ++i) {
        entries.append(menu.addAction(m_ui->tree->topLevelItem(i)->text(0), this, [this, i] {
            QTreeWidgetItem* const item = m_ui->tree->topLevelItem(i);
            if (item && item == m_ui->tree->currentItem())
                choose(item);
            else if (item)
                m_ui->tree->setCurrentItem(item);
        }));
        entries.last()->setCheckable(true);
    }
    connect(&menu, &QMenu::aboutToShow, this, [this, entries] {
        for (int i = 0; i < entries.size(); ++i) {
            const QTreeWidgetItem* const item = m_ui->tree->topLevelItem(i);
            entries.at(i)->setChecked(item && item == m_ui->tree->currentItem());
        }
    });
}

bool IndexPane::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        m_beforePress = m_ui->tree->currentItem();
    return QWidget::eventFilter(watched, event);
}

QTreeWidget* IndexPane::tree()
{
    return m_ui->tree;
}

void IndexPane::choose(QTreeWidgetItem* item)
{
    if (!item || !nodeOf(item).filter)
        return;
    m_givenBefore = m_given;
    m_given = filterOf(item);
    m_shownBefore = m_shown;
    m_shown = item;
    if (m_given)
        emit chosen(*m_given, nodeOf(item).list);
    else
        emit choseNothing(nodeOf(item).list);
}

std::optional<ListFilter> IndexPane::filterOf(const QTreeWidgetItem* item) const
{
    const IndexNode& node = nodeOf(item);
    return node.filter ? node.filter(m_context()) : std::nullopt;
}

} // namespace records
