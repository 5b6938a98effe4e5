#pragma once

#include "records/data/list_description.h"

#include <QDate>
#include <QList>
#include <QString>

#include <functional>
#include <optional>

// The index beside the lists of a main screen: a tree of ready-made filters.
namespace records {

// What a filter may depend on besides its node.
struct IndexContext {
    const Settings& settings;
    QDate today;
};

struct IndexNode {
    // Nothing as long as there is nothing to show (the own records of what is not chosen yet).
    using Filter = std::function<std::optional<ListFilter>(const IndexContext& context)>;

    QString caption;
    Filter filter = {}; // empty: the node shows nothing by itself
    QList<IndexNode> children = {};
    // By which the node is found again when the file is opened next: unique among its siblings.
    int number = 0;
    int list = 0; // which of the screen's lists it fills
};

// A node whose filter is a condition and bears the node's caption.
IndexNode conditionNode(const QString& caption, const QString& condition);

// The stored searches (カスタム検索) in their order, each with its ID as its number.
QList<IndexNode> searchNodes(Database& data,
                             const std::function<ListFilter(const QString& text)>& filterOf);

} // namespace records
