#pragma once

#include "records/data/settings.h"

// The columns of a customer file's settings row, with what stands for a missing or Null one. Those
// of the log preview's place: records/data/log_preview.
namespace customer::settings {

using records::Setting;

// What the main screen showed last, kept while 前回表示 is する (0).
inline constexpr Setting CustomerView{u"顧客表示方法"}; // the node of the customer index
inline constexpr Setting CaseView{u"件名表示方法"};     // the node of the case index
inline constexpr Setting RememberView{u"前回表示"};     // 0 = する, 1 = しない

// 1: the detail window is open, from the customer list and from the case list.
inline constexpr Setting CustomerDetail{u"顧客詳細表示"};
inline constexpr Setting CaseDetail{u"件名詳細表示"};
inline constexpr Setting DetailLeft{u"顧客詳細横位置"}; // in twips
inline constexpr Setting DetailTop{u"顧客詳細縦位置"};
inline constexpr Setting PreviewShown{u"ログプレ表示", 1};
// The column whose click opens the window: 0 = any, else from 1 on.
inline constexpr Setting CustomerClickColumn{u"顧客詳細表示列位置"};
inline constexpr Setting CaseClickColumn{u"件顧詳細表示列位置"};
inline constexpr Setting LogClickColumn{u"ログプレ表示列位置"};

// The orders of the lists (the number of the choice; 1 = 降順) and the rows of a page: 0 and Null
// mean all.
inline constexpr Setting CustomerOrder{u"並べ01"};
inline constexpr Setting CustomerDescending{u"並べ02"};
inline constexpr Setting CustomersShown{u"顧客表示数", 100, 0};
inline constexpr Setting CaseOrder{u"並べ03"};
inline constexpr Setting CaseDescending{u"並べ04"};
inline constexpr Setting CasesShown{u"件名表示数", 100, 0};
inline constexpr Setting LogOrder{u"並べ05"};
inline constexpr Setting LogDescending{u"並べ06"};
inline constexpr Setting LogsShown{u"ログ表示数", 100, 0};

inline constexpr Setting RecentCustomerDays{u"最近更新顧客表示日数", 7, 7};
inline constexpr Setting RecentCaseDays{u"最近更新件名ログ表示日数", 7, 7};
inline constexpr Setting ShowSchedule{u"予定表示"};    // 0 = する, 1 = しない
inline constexpr Setting CaseDateShown{u"件名表示日"}; // 0 both, 1 登録日 alone, 2 予定日 alone
inline constexpr Setting EmphasizePlanned{u"件名予定強調"}; // 1 = あり

} // namespace customer::settings
