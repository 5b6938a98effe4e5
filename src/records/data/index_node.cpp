#include "records/data/index_node.h"

#include "storage/recordset.h"

using namespace Qt::StringLiterals;

namespace records {

namespace {

const QString SearchesQuery = u"Select * From カスタム検索 ORDER BY カスタム検索識別ID,順位"_s;

} // namespace

IndexNode conditionNode(const QString& caption, const QString& condition)
{
    return {caption,
            [filter = ListFilter{condition, {}, caption}](const IndexContext&) { return filter; }};
}

QList<IndexNode> searchNodes(Database& data,
                             const std::function<ListFilter(const QString& text)>& filterOf)
{
    QList<IndexNode> nodes;
    storage::Recordset rows;
    if (!rows.open(SearchesQuery, data.connection))
        return nodes;
    while (!rows.eof()) {
        const QString text = rows.text(u"文字列");
        nodes.append({text, [filter = filterOf(text)](const IndexContext&) { return filter; }});
        nodes.last().number = static_cast<int>(rows.value(u"カスタム検索更新ID").toInteger());
        if (!rows.moveNext())
            break;
    }
    return nodes;
}

} // namespace records
