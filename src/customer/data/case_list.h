#pragma once

#include "core/data/record_list.h"
#include "customer/data/customer_file.h"
#include "customer/data/list_filter.h"
#include "customer/data/settings.h"

#include <memory>
#include <optional>

// The list of cases (ListView2). Columns: 登録日, 予定日, 表示名, 件名, 備考, 判定; check box:
// K印字.
namespace customer {

// What a row of the list is emphasised as, when 件名予定強調 says so: open cases with a planned
// date.
enum CaseEmphasis { NoEmphasis = 0, PlannedLater = 1, PlannedToday = 2, PlannedBefore = 3 };

// " ORDER BY ..." for a column of the list.
QString caseSortClause(const SortOrder& order);
// The order that the settings choose.
SortOrder caseSortOf(const Settings& settings);

// The cases of a filter, in pages of 件名表示数; `clicked` as for the customers.
std::unique_ptr<core::RecordList> openCaseList(CustomerFile& file, const ListFilter& filter,
                                               const std::optional<SortOrder>& clicked,
                                               const Settings& settings);

} // namespace customer
