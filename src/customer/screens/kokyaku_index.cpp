#include "customer/screens/kokyaku_index.h"

#include "core/data/clock.h"
#include "ui_kokyaku_index.h"

#include <QEvent>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace customer {

namespace {

constexpr int NodeNumber = Qt::UserRole;

// The captions from the root to a node, which find it again after the index was read anew.
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

kokyaku_index::kokyaku_index(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::kokyaku_index>())
{
    m_ui->setupUi(this);
    connect(m_ui->TreeView1, &QTreeWidget::currentItemChanged, this, &kokyaku_index::choose);
    // Clicking the node that is chosen already runs its search again.
    m_ui->TreeView1->viewport()->installEventFilter(this);
    connect(m_ui->TreeView1, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        if (item == m_beforePress)
            choose(item);
    });
}

kokyaku_index::~kokyaku_index() = default;

void kokyaku_index::initialize(CustomerFile& file, const Settings& settings)
{
    m_file = &file;
    m_settings = &settings;
    fill();
}

void kokyaku_index::fill()
{
    const QSignalBlocker blocker(m_ui->TreeView1);
    m_ui->TreeView1->clear();
    m_nodes.clear();
    auto* const root = new QTreeWidgetItem(m_ui->TreeView1);
    addNode(root, customerIndex(*m_file));
    root->setExpanded(true);
}

void kokyaku_index::addNode(QTreeWidgetItem* item, const IndexNode& node)
{
    item->setText(0, node.caption);
    item->setData(0, NodeNumber, static_cast<int>(m_nodes.size()));
    m_nodes.append(node);
    m_nodes.last().children.clear();
    for (const IndexNode& child : node.children)
        addNode(new QTreeWidgetItem(item), child);
}

void kokyaku_index::chooseNode(int number)
{
    QTreeWidgetItem* const root = m_ui->TreeView1->topLevelItem(0);
    QTreeWidgetItem* const child = root->child(number - 1);
    m_ui->TreeView1->setCurrentItem(child && filterOf(child) ? child : root);
}

int kokyaku_index::chosenNode() const
{
    const QTreeWidgetItem* const root = m_ui->TreeView1->topLevelItem(0);
    QTreeWidgetItem* item = m_ui->TreeView1->currentItem();
    while (item && item != root && item->parent() != root)
        item = item->parent();
    return item ? root->indexOfChild(item) + 1 : 0;
}

void kokyaku_index::reload()
{
    const QStringList path = pathOf(m_ui->TreeView1->currentItem());
    QTreeWidgetItem* const root = m_ui->TreeView1->topLevelItem(0);
    QStringList expanded;
    for (int i = 0; i < root->childCount(); ++i) {
        if (root->child(i)->isExpanded())
            expanded.append(root->child(i)->text(0));
    }
    fill();
    const QSignalBlocker blocker(m_ui->TreeView1);
    QTreeWidgetItem* item = m_ui->TreeView1->topLevelItem(0);
    for (const QString& caption : std::as_const(expanded)) {
        if (QTreeWidgetItem* const child = childNamed(item, caption))
            child->setExpanded(true);
    }
    for (qsizetype depth = 1; depth < path.size() && item; ++depth)
        item = childNamed(item, path.at(depth));
    if (item && !path.isEmpty())
        m_ui->TreeView1->setCurrentItem(item);
    // The day or the settings may have changed what the node asks for.
    const QTreeWidgetItem* const chosenNow = m_ui->TreeView1->currentItem();
    if (chosenNow && filterOf(chosenNow) != m_given)
        choose(m_ui->TreeView1->currentItem());
}

bool kokyaku_index::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        m_beforePress = m_ui->TreeView1->currentItem();
    return QWidget::eventFilter(watched, event);
}

QWidget* kokyaku_index::tree()
{
    return m_ui->TreeView1;
}

void kokyaku_index::choose(QTreeWidgetItem* item)
{
    const std::optional<ListFilter> filter = item ? filterOf(item) : std::nullopt;
    if (!filter)
        return;
    m_given = filter;
    emit chosen(*filter);
}

std::optional<ListFilter> kokyaku_index::filterOf(const QTreeWidgetItem* item) const
{
    const IndexNode& node = m_nodes.at(item->data(0, NodeNumber).toInt());
    return customer::filterOf(node, *m_settings, m_file->clock.today());
}

} // namespace customer
