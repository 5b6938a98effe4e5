#include "storage/sql/compile.h"

#include "storage/sql/bind.h"
#include "storage/sql/condition_parts.h"
#include "storage/sql/emit.h"
#include "storage/sql/finding.h"
#include "storage/sql/listed_texts.h"
#include "storage/sql/parser.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

Compiled compiled(bound::Select&& bound, const schema::Catalog& catalog, const Dialect& dialect)
{
    const auto kept = std::make_shared<const bound::Select>(std::move(bound));
    const bound::Select& select = *kept;
    const bound::SelectPart& first = select.parts.front();
    const bool updatable = select.parts.size() == 1 && first.sources.size() == 1 && !first.distinct
        && !first.aggregated;
    Compiled result;
    result.kind = StatementKind::Rows;
    result.statement = Emitter(dialect).rows(select, updatable);
    result.count = Emitter(dialect).count(select);
    for (const bound::Output& output : first.outputs)
        result.columns.append(output.column);
    if (updatable)
        result.updatableTable = first.sources.front().table->name();
    result.ordered = !select.order.empty();
    result.ofOneRecord = select.parts.size() == 1 && !first.distinct && !first.aggregated
        && !first.top && first.where && isOfOneRecord(*first.where);
    result.select = kept;
    result.known = std::make_shared<KnownFinding>();
    result.tables = catalog;
    return result;
}

// Only rows that are written bring texts.
template <typename Change> void addListed(const Change& /*change*/, Compiled* /*result*/) {}

void addListed(const bound::Insert& insert, Compiled* result)
{
    result->writtenTable = insert.table->name();
    result->listed = listedColumns(insert);
}

void addListed(const bound::Update& update, Compiled* result)
{
    result->writtenTable = update.source.table->name();
    result->listed = listedColumns(update);
}

template <typename Change>
Compiled compiled(Change&& change, const schema::Catalog& /*catalog*/, const Dialect& dialect)
{
    constexpr bool defines =
        std::is_same_v<Change, bound::AddColumn> || std::is_same_v<Change, bound::DropTable>;
    Compiled result;
    result.kind = defines ? StatementKind::Definition : StatementKind::Write;
    result.statement = Emitter(dialect).change(change);
    addListed(change, &result);
    return result;
}

Error wrongNumber(const QString& statement, const std::vector<int>& wanted, qsizetype given)
{
    return {ErrorKind::State,
            u"文の「?」は "_s + QString::number(wanted.size()) + u" 個で、値は "_s
                + QString::number(given) + u" 個です。"_s,
            wanted.empty() ? 0 : wanted.front(), statement};
}

} // namespace

std::variant<Compiled, Error> compile(const QString& statement, const schema::Catalog& catalog,
                                      const Dialect& dialect, const QList<ValueType>& arguments)
{
    Parser parser(statement);
    auto parsed = parser.parse();
    if (auto* error = std::get_if<Error>(&parsed))
        return std::move(*error);
    if (parser.arguments().size() != static_cast<size_t>(arguments.size()))
        return wrongNumber(statement, parser.arguments(), arguments.size());
    auto bound = Binder(statement, catalog, arguments).bind(std::get<ast::Statement>(parsed));
    if (auto* error = std::get_if<Error>(&bound))
        return std::move(*error);
    return std::visit([&](auto& each) { return compiled(std::move(each), catalog, dialect); },
                      std::get<bound::Statement>(bound));
}

Emitted window(const Compiled& rows, qint64 limit, qint64 offset, const Dialect& dialect)
{
    return {rows.statement.text + u' ' + dialect.window(limit, offset), rows.statement.parameters};
}

} // namespace storage::sql
