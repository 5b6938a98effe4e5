#include "ui/ordered_list.h"

#include "ui/list_view.h"

#include <QHeaderView>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace ui {

OrderedList::OrderedList(ListView& view, PageScrollBar& pages, Counters* counters,
                         ListDefinition definition)
    : m_view(view),
      m_list(view, pages, counters, definition.headers),
      m_definition(std::move(definition))
{
    for (int column = 0; column < m_definition.widths.size(); ++column)
        m_view.header()->resizeSection(column, m_definition.widths.at(column));
    m_view.header()->setStretchLastSection(true);
    connect(&m_view, &ListView::headerClicked, this, &OrderedList::orderBy);
    connect(&m_list.model(), &PagedListModel::rowsVanished, this, &OrderedList::refill);
}

void OrderedList::show(bool keepOrder)
{
    if (!keepOrder)
        m_clicked.reset();
    m_shown = true;
    m_list.fill(m_definition.open(m_clicked), m_definition.tableRows);
    showOrder();
}

void OrderedList::refill()
{
    if (m_shown)
        m_list.refill(m_definition.open(m_clicked), m_definition.tableRows);
}

void OrderedList::clear()
{
    m_shown = false;
    m_list.clear();
}

void OrderedList::orderBy(int column)
{
    if (!m_shown)
        return;
    const bool again = m_clicked && m_clicked->column == column;
    m_clicked = ListOrder{column, again && !m_clicked->descending};
    m_list.fill(m_definition.open(m_clicked), m_definition.tableRows);
    showOrder();
}

void OrderedList::showOrder()
{
    const std::optional<ListOrder> order = m_clicked ? m_clicked : m_definition.standingOrder();
    m_view.header()->setSortIndicatorShown(order.has_value());
    if (order)
        m_view.header()->setSortIndicator(
            order->column, order->descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void OrderedList::addTo(QMenu& menu)
{
    QAction* const copy =
        menu.addAction(u"コピー(&C)\tCtrl+C"_s, &m_view, &ListView::copySelection);
    copy->setEnabled(m_view.selectionModel()->hasSelection());
    QMenu* const order = menu.addMenu(u"並べ替え(&T)"_s);
    order->setEnabled(m_shown);
    for (int column = 0; column < m_definition.headers.size(); ++column)
        order->addAction(m_definition.headers.at(column), this,
                         [this, column] { orderBy(column); });
    menu.addAction(u"リスト表示を更新(&R)\tF5"_s, this, &OrderedList::refill)->setEnabled(m_shown);
}

} // namespace ui
