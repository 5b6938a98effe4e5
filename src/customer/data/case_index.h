#pragma once

#include "core/data/record_key.h"
#include "customer/data/list_filter.h"
#include "customer/data/settings.h"

#include <QDate>
#include <QList>
#include <QString>

// The index of cases (TreeView2) and the same choices of the display menu.
namespace customer {

enum class CaseView {
    Single,   // 個々: the cases of the chosen customer
    Open,     // 続行の件名表示
    Finished, // 完了の件名表示
    All,      // 全ての件名表示
    Recent,   // 最近一週間: changed in the last days
    Other     // no node: a day, a text, the case of a log
};

struct CaseIndexNode {
    QString caption;
    CaseView view;
};

// The nodes in their order.
QList<CaseIndexNode> caseIndex();

ListFilter casesOfCustomer(const core::RecordKey& customer, const QString& name);
// One case alone, as shown for a log.
ListFilter singleCase(const core::RecordKey& ofCase);
ListFilter openCases();
ListFilter finishedCases();
ListFilter allCases();
// The cases registered on or planned for a day.
ListFilter casesOfDay(QDate day);
// The cases changed in the last days.
ListFilter recentCases(const Settings& settings, QDate today);
ListFilter casesWithText(const QString& text);

} // namespace customer
