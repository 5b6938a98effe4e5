#pragma once

#include "core/data/record_key.h"
#include "core/data/record_list.h"
#include "customer/data/customer_file.h"
#include "customer/data/list_filter.h"
#include "customer/data/settings.h"

#include <memory>
#include <optional>

// The list of log entries (ListView3). Columns: 登録日, 記録者, Rログ.
namespace customer {

ListFilter logsOfCase(const core::RecordKey& ofCase, const QString& title);

// " ORDER BY ..." for a column of the list.
QString logSortClause(const SortOrder& order);
// The order that the settings choose.
SortOrder logSortOf(const Settings& settings);

// The log entries of a filter, in pages of ログ表示数; `clicked` as for the customers.
std::unique_ptr<core::RecordList> openLogList(CustomerFile& file, const ListFilter& filter,
                                              const std::optional<SortOrder>& clicked,
                                              const Settings& settings);

} // namespace customer
