#pragma once

#include "customer/data/customer_file.h"
#include "customer/data/list_filter.h"
#include "customer/data/settings.h"

#include <QList>
#include <QString>

#include <optional>

// The index of customers (TreeView1).
namespace customer {

enum class IndexNodeKind {
    Condition,    // shows the customers of its condition
    Recent,       // 最近更新
    SearchFolder, // ｶｽﾀﾑ検索: shows nothing by itself
    Search        // a stored search: its caption is the text
};

struct IndexNode {
    QString caption;
    IndexNodeKind kind = IndexNodeKind::Condition;
    QString condition;
    QList<IndexNode> children;
};

// The root 顧客管理 with all that is below it; the stored searches are read from the file.
IndexNode customerIndex(CustomerFile& file);

// What choosing a node shows; nullopt for a node that shows nothing.
std::optional<ListFilter> filterOf(const IndexNode& node, const Settings& settings, QDate today);

// The customers of whom any field holds a text.
ListFilter customersWithText(const QString& text);
// The customers changed in the last days (最近更新).
ListFilter recentCustomers(const Settings& settings, QDate today);

} // namespace customer
