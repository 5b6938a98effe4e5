#pragma once

#include "customer/data/list_filter.h"
#include "ui/ordered_list.h"

// Between the orders of lists as the widgets and as the data room have them.
namespace customer {

inline std::optional<SortOrder> toSortOrder(const std::optional<ui::ListOrder>& clicked)
{
    if (!clicked)
        return std::nullopt;
    return SortOrder{clicked->column, clicked->descending};
}

// The order that stands until a header is clicked: that of the settings, or the filter's own, which
// is no column's.
inline std::optional<ui::ListOrder> standingOrder(const ListFilter& filter,
                                                  const SortOrder& ofSettings)
{
    if (!filter.ownOrder.isEmpty())
        return std::nullopt;
    return ui::ListOrder{ofSettings.column, ofSettings.descending};
}

} // namespace customer
