#pragma once

#include "records/data/index_node.h"

// The index of customers (TreeView1).
namespace customer {

// The root 顧客管理 with all that is below it; the stored searches are read from the file.
records::IndexNode customerIndex(records::Database& data);

// The customers of whom any field holds a text.
records::ListFilter customersWithText(const QString& text);
// The customers changed in the last days (最近更新).
records::ListFilter recentCustomers(const records::IndexContext& context);

} // namespace customer
