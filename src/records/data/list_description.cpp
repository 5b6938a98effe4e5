#include "records/data/list_description.h"

#include "storage/base/quoted.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace records {

namespace {

const QString OrderBy = u" ORDER BY "_s;
const QString Where = u" WHERE "_s;

} // namespace

std::optional<ListOrder> standingOrder(const ListDescription& list, const ListFilter& filter,
                                       const Settings& settings)
{
    if (!filter.ownOrder.isEmpty() || list.choices.isEmpty())
        return std::nullopt;
    const QString first = list.choices.first();
    return ListOrder{list.choices.value(settings[list.order], first),
                     settings[list.descending] == 1};
}

std::optional<ListOrder> orderOf(const ListDescription& list, int column, bool descending)
{
    const QString clause = list.columns.value(column).clause;
    return clause.isEmpty() ? std::nullopt : std::optional(ListOrder{clause, descending});
}

int columnOf(const ListDescription& list, const ListOrder& order)
{
    const auto found = std::ranges::find(list.columns, order.clause, &ListColumn::clause);
    return found == list.columns.cend() ? -1 : static_cast<int>(found - list.columns.cbegin());
}

QString listStatement(const ListDescription& list, const ListFilter& filter,
                      const std::optional<ListOrder>& clicked, const Settings& settings)
{
    const QString rows =
        (filter.source.isEmpty() ? list.statement : filter.source) + filter.condition;
    const std::optional<ListOrder> order =
        clicked ? clicked : standingOrder(list, filter, settings);
    if (!order)
        return rows + filter.ownOrder;
    return rows + order->clause + (order->descending ? u" DESC"_s : QString()) + list.tieBreak;
}

QStringList beginningWith(const ListDescription& list, const ListFilter& filter,
                          const std::optional<ListOrder>& clicked, const Settings& settings,
                          const QString& text)
{
    const std::optional<ListOrder> order =
        clicked ? clicked : standingOrder(list, filter, settings);
    const int column = order ? columnOf(list, *order) : -1;
    if (column < 0 || !filter.source.isEmpty())
        return {};
    const QString ordered = order->clause.mid(OrderBy.size());
    QStringList looked{ordered};
    if (const QString& shown = list.columns.at(column).shown; !shown.isEmpty())
        looked.append(shown);
    // Without its WHERE.
    const QString condition = filter.condition.trimmed().mid(Where.trimmed().size());
    QStringList statements;
    for (const QString& each : std::as_const(looked)) {
        ListFilter narrowed = filter;
        narrowed.condition = Where
            + (condition.isEmpty() ? QString() : u'(' + condition + u") And "_s) + each
            + u" Like '"_s + storage::quoted(storage::likeLiteral(text)) + u"%'"_s;
        statements.append(listStatement(list, narrowed, order, settings));
    }
    return statements;
}

} // namespace records
