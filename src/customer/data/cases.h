#pragma once

#include "records/data/list_description.h"
#include "records/data/record_table.h"

// Cases of customers (table 件名).
namespace customer {

// The two values of 判定.
inline constexpr char16_t OpenState[] = u"続行";
inline constexpr char16_t FinishedState[] = u"完了";

// A case belongs to a customer. A case that is saved as 完了 gets the present day as its 完了日,
// any other loses it. The customer counts as changed with its case; logs and shortcuts go with it.
const records::RecordTable& caseTable();

// What a row of the list is emphasised as, when 件名予定強調 says so: open cases with a planned
// date.
enum CaseEmphasis { NoEmphasis = 0, PlannedLater = 1, PlannedToday = 2, PlannedBefore = 3 };
// The columns of the list that show a date.
inline constexpr int RegisteredColumn = 0;
inline constexpr int PlannedColumn = 1;

// Columns: 登録日, 予定日, 表示名, 件名, 備考, 判定; check box: K印字.
const records::ListDescription& caseList();

} // namespace customer
