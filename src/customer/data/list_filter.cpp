#include "customer/data/list_filter.h"

using namespace Qt::StringLiterals;

namespace customer {

QString sortClause(std::span<const QString> clauses, const SortOrder& order,
                   const QString& tieBreak)
{
    const auto column = static_cast<std::size_t>(order.column);
    const QString& clause = clauses[column < clauses.size() ? column : 0];
    return clause + (order.descending ? u" DESC"_s : QString()) + tieBreak;
}

SortOrder sortOf(std::span<const int> choices, int choice, int descending)
{
    const auto index = static_cast<std::size_t>(choice);
    return {choices[index < choices.size() ? index : 0], descending == 1};
}

QString listStatement(const QString& source, const ListFilter& filter, bool clicked,
                      const QString& order)
{
    const bool own = !clicked && !filter.ownOrder.isEmpty();
    return (filter.source.isEmpty() ? source : filter.source) + filter.condition
        + (own ? filter.ownOrder : order);
}

} // namespace customer
