#pragma once

#include "core/data/record_list.h"
#include "customer/data/customer_file.h"
#include "customer/data/list_filter.h"
#include "customer/data/settings.h"

#include <memory>
#include <optional>

// The list of customers (ListView1). Columns: 表示名, 自宅TEL, 会社TEL, E-MAIL; check box: Y印字.
namespace customer {

// " ORDER BY ..." for a column of the list.
QString customerSortClause(const SortOrder& order);
// The order that the settings choose.
SortOrder customerSortOf(const Settings& settings);

// The customers of a filter, in pages of 顧客表示数. `clicked` is the order of a clicked header;
// without it the filter's own order stands, or else that of the settings.
std::unique_ptr<core::RecordList> openCustomerList(CustomerFile& file, const ListFilter& filter,
                                                   const std::optional<SortOrder>& clicked,
                                                   const Settings& settings);

} // namespace customer
