#pragma once

#include "customer/data/customer_file.h"

#include <QList>

namespace customer {

// The settings row (設定, 設定ID = 1), with what stands for a column that is missing or Null.
struct Settings {
    // What the main screen showed last, kept while 前回表示 is する.
    int firstTab = 0;     // 顧客初期ﾀﾌﾞ: the page of its tab control
    int customerView = 0; // 顧客表示方法: 0 = 顧客管理, from 1 on the nodes below it
    int caseView = 0;     // 件名表示方法: the node of the case index
    int logView = 0;      // ログ表示方法: not used, the log list shows a case's entries only
    int customerDetail = 0; // 顧客詳細表示: 1 = the detail window is open
    int caseDetail = 0;     // 件名詳細表示: the same from the case list

    int customerSort = 0; // 並べ01: 0 = 表示名ﾌﾘｶﾞﾅ, 1 = 会社TEL, 2 = 自宅TEL
    int customerDescending = 0; // 並べ02: 1 = 降順
    int caseSort = 0; // 並べ03: 0 登録日, 1 予定日, 2 表示名, 3 件名, 4 備考, 5 判定
    int caseDescending = 0; // 並べ04
    int logSort = 0;        // 並べ05: 0 = 登録日, 1 = 記録者, 2 = ログ
    int logDescending = 0;  // 並べ06

    int marginTop = 15;    // 上, in mm
    int marginLeft = 15;   // 左
    int marginRight = 15;  // 右
    int marginBottom = 15; // 下

    int customersShown = 100; // 顧客表示数: rows of a page; 0 (and Null) = all
    int casesShown = 100;     // 件名表示数
    int logsShown = 100;      // ログ表示数

    int showSchedule = 0; // 予定表示: 0 = する, 1 = しない
    int rememberView = 0; // 前回表示: 0 = する, 1 = しない

    int previewShown = 1; // ログプレ表示; its place: core/data/log_preview.h

    int detailLeft = 0; // 顧客詳細横位置, in twips
    int detailTop = 0;  // 顧客詳細縦位置

    int customerClickColumn = 0; // 顧客詳細表示列位置: 0 = any column, else the column from 1 on
    int caseClickColumn = 0; // 件顧詳細表示列位置
    int logClickColumn = 0;  // ログプレ表示列位置

    int recentCustomerDays = 7; // 最近更新顧客表示日数
    int recentCaseDays = 7;     // 最近更新件名ログ表示日数

    // 件名表示日: 0 = 登録日 and 予定日, 1 = 登録日 alone, 2 = 予定日 alone
    int caseDateShown = 0;
    int emphasizePlanned = 0; // 件名予定強調: 0 = なし, 1 = あり

    QString stamp; // 更新日時, for the record check

    bool operator==(const Settings& other) const = default;
};

// The settings of the open file.
Settings readSettings(CustomerFile& file);

// One setting and its new value, as in {&Settings::detailLeft, 1200}.
struct SettingValue {
    int Settings::*setting;
    int value;
};

// Writes some settings and leaves the others alone; makes the row with its defaults when it is
// missing. The user is told of a failure; false then.
bool saveSettings(CustomerFile& file, const QList<SettingValue>& values);

} // namespace customer
