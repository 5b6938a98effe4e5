#include "storage/sql/compile.h"

#include "storage/sql/bind.h"
#include "storage/sql/emit.h"
#include "storage/sql/listed_texts.h"
#include "storage/sql/parser.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

Compiled compiled(const bound::Select& select, const Dialect& dialect)
{
    const bound::SelectPart& first = select.parts.front();
    const bool updatable = select.parts.size() == 1 && first.sources.size() == 1 && !first.distinct
        && !first.aggregated;
    Compiled result;
    result.kind = StatementKind::Rows;
    result.statement = Emitter(dialect).rows(select, updatable);
    result.count = Emitter(dialect).count(select);
    result.page = Emitter(dialect).page(select, updatable);
    for (const bound::Output& output : first.outputs)
        result.columns.append(output.column);
    if (updatable)
        result.updatableTable = first.sources.front().table->name();
    result.ordered = !select.order.empty();
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

template <typename Change> Compiled compiled(const Change& change, const Dialect& dialect)
{
    constexpr bool defines =
        std::is_same_v<Change, bound::AddColumn> || std::is_same_v<Change, bound::DropTable>;
    Compiled result;
    result.kind = defines ? StatementKind::Definition : StatementKind::Write;
    result.statement = Emitter(dialect).change(change);
    addListed(change, &result);
    return result;
}

} // namespace

std::variant<Compiled, Error> compile(const QString& statement, const schema::Catalog& catalog,
                                      const Dialect& dialect)
{
    auto parsed = Parser(statement).parse();
    if (auto* error = std::get_if<Error>(&parsed))
        return std::move(*error);
    auto bound = Binder(statement, catalog).bind(std::get<ast::Statement>(parsed));
    if (auto* error = std::get_if<Error>(&bound))
        return std::move(*error);
    return std::visit([&dialect](const auto& each) { return compiled(each, dialect); },
                      std::get<bound::Statement>(bound));
}

Emitted window(const Compiled& rows, qint64 limit, qint64 offset, const Dialect& dialect)
{
    const QString window = dialect.window(limit, offset);
    if (rows.page && (offset > 0 || !rows.page->firstInOneStep))
        return {rows.page->head + u' ' + window + rows.page->tail, rows.page->parameters};
    return {rows.statement.text + u' ' + window, rows.statement.parameters};
}

Emitted searchWindow(const Compiled& rows, qint64 limit, qint64 offset, const Dialect& dialect)
{
    return {rows.page->searchHead + u' ' + dialect.window(limit, offset) + rows.page->tail,
            rows.page->parameters};
}

} // namespace storage::sql
