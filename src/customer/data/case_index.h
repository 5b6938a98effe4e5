#pragma once

#include "core/data/record_key.h"
#include "records/data/index_node.h"

#include <QDate>

// The index of cases (TreeView2) and the same choices of the display menu.
namespace customer {

// 個々, 続行, 完了, 全て and 最近一週間. `ownCases` gives the cases of the chosen customer, for
// 個々.
QList<records::IndexNode> caseIndex(const records::IndexNode::Filter& ownCases);

records::ListFilter casesOfCustomer(const core::RecordKey& customer, const QString& name);
// One case alone, as shown for a log.
records::ListFilter singleCase(const core::RecordKey& ofCase);
// The cases registered on or planned for a day.
records::ListFilter casesOfDay(QDate day);
// The cases changed in the last days.
records::ListFilter recentCases(const records::IndexContext& context);
records::ListFilter casesWithText(const QString& text);

} // namespace customer
