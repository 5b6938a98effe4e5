#include "storage/sql/bind.h"

#include "storage/sql/bind_support.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

using schema::ColumnType;

// Stands in for a table that is not there, so that binding can go on to its end.
const schema::Table kNoTable;

constexpr qsizetype kMaxName = 64;

} // namespace

Binder::Binder(const QString& statement, const schema::Catalog& catalog, QList<ValueType> arguments)
    : m_statement(statement), m_catalog(catalog), m_arguments(std::move(arguments))
{
}

std::variant<bound::Statement, Error> Binder::bind(const ast::Statement& statement)
{
    bound::Statement result =
        std::visit([this](const auto& written) { return bindStatement(written); }, statement);
    if (failed())
        return *m_error;
    return result;
}

void Binder::fail(ErrorKind kind, int position, const QString& message)
{
    if (!failed())
        m_error = Error{kind, message, position, m_statement};
}

const schema::Table* Binder::table(const ast::TableName& name)
{
    if (!name.source.isEmpty()) {
        fail(ErrorKind::Name, name.position, u"ほかのデータの表はここでは使えません。"_s);
        return &kNoTable;
    }
    const schema::Table* found = m_catalog.find(name.name);
    if (!found)
        fail(ErrorKind::Name, name.position, u"表"_s + quoted(name.name) + u"がありません。"_s);
    return found ? found : &kNoTable;
}

int Binder::column(const schema::Table& table, const ast::Name& name)
{
    const int index = table.indexOf(name.text);
    if (index < 0)
        fail(ErrorKind::Name, name.position,
             u"表"_s + quoted(table.name()) + u"に列"_s + quoted(name.text) + u"がありません。"_s);
    return index;
}

bound::Statement Binder::bindStatement(const ast::Select& select)
{
    if (select.into)
        fail(ErrorKind::Syntax, select.into->position, u"SELECT INTO はここでは使えません。"_s);
    return bindSelect(select);
}

bound::Statement Binder::bindStatement(const ast::Insert& insert)
{
    bound::Insert result;
    result.table = table(insert.table);
    bound::Select select;
    if (const auto* source = std::get_if<ast::Select>(&insert.source)) {
        if (source->into)
            fail(ErrorKind::Syntax, source->into->position, u"INTO はここでは使えません。"_s);
        select = bindSelect(*source);
    }
    if (!failed())
        insertColumns(insert, select, &result);
    if (failed())
        return result;
    if (!select.parts.empty()) {
        fitSelected(&select, &result);
        result.source = std::move(select);
        return result;
    }
    std::vector<bound::ExpressionPtr> values;
    const std::vector<bound::Source> none;
    for (const auto& value : std::get<std::vector<ast::ExpressionPtr>>(insert.source)) {
        const schema::Column& target = result.table->columns()[result.columns[values.size()]];
        values.push_back(assigned(bindValue(*value, Scope{&none, false}), target, none));
    }
    result.source = std::move(values);
    return result;
}

// The columns that are written, one for each value: those listed, else those that the SELECT names,
// else all of the table.
void Binder::insertColumns(const ast::Insert& insert, const bound::Select& select,
                           bound::Insert* result)
{
    const bool selects = !select.parts.empty();
    const int position = insert.table.position;
    for (const ast::Name& name : insert.columns)
        result->columns.push_back(column(*result->table, name));
    if (insert.columns.empty() && selects) {
        for (const bound::Output& output : select.parts.front().outputs)
            result->columns.push_back(
                column(*result->table, {output.column.name, output.expression->position}));
    } else if (insert.columns.empty()) {
        for (int i = 0; i < result->table->columns().size(); ++i)
            result->columns.push_back(i);
    }
    const size_t values = selects ? select.parts.front().outputs.size()
                                  : std::get<std::vector<ast::ExpressionPtr>>(insert.source).size();
    if (values != result->columns.size())
        fail(ErrorKind::Syntax, position, u"列と値の数が合いません。"_s);
    std::vector<int> sorted = result->columns;
    std::ranges::sort(sorted);
    if (std::ranges::adjacent_find(sorted) != sorted.end())
        fail(ErrorKind::Name, position, u"同じ列が二度書かれています。"_s);
}

bound::Statement Binder::bindStatement(const ast::Update& update)
{
    bound::Update result;
    result.source.table = table(update.table);
    const std::vector<bound::Source> sources{{result.source.table, result.source.table->name()}};
    const Scope scope{&sources, false};
    for (const ast::Assignment& assignment : update.assignments) {
        const int index = column(*result.source.table, assignment.column);
        bound::ExpressionPtr value = bindValue(*assignment.value, scope);
        if (failed())
            return result;
        const schema::Column& target = result.source.table->columns()[index];
        if (target.type == ColumnType::AutoNumber)
            fail(ErrorKind::Type, assignment.column.position,
                 u"列"_s + quoted(target.name) + u"は自動で振られる番号で、書き換えられません。"_s);
        for (const bound::Assignment& other : result.assignments) {
            if (other.column == index)
                fail(ErrorKind::Name, assignment.column.position,
                     u"同じ列が二度書かれています。"_s);
        }
        result.assignments.push_back({index, assigned(std::move(value), target, sources)});
    }
    if (update.where)
        result.where = bindCondition(*update.where, scope);
    return result;
}

bound::Statement Binder::bindStatement(const ast::Delete& deletion)
{
    bound::Delete result;
    result.source.table = table(deletion.table);
    const std::vector<bound::Source> sources{{result.source.table, result.source.table->name()}};
    if (deletion.where)
        result.where = bindCondition(*deletion.where, Scope{&sources, false});
    return result;
}

bound::Statement Binder::bindStatement(const ast::AddColumn& addition)
{
    bound::AddColumn result;
    result.table = table(addition.table);
    result.column = {addition.column.text, addition.type, addition.maxLength};
    // A leading "_" marks what statements do not see.
    if (addition.column.text.size() > kMaxName || addition.column.text.startsWith(u'_'))
        fail(ErrorKind::Name, addition.column.position,
             quoted(addition.column.text) + u"は列の名前にできません。"_s);
    if (result.table->indexOf(addition.column.text) >= 0)
        fail(ErrorKind::Exists, addition.column.position,
             u"列"_s + quoted(addition.column.text) + u"はもうあります。"_s);
    return result;
}

bound::Statement Binder::bindStatement(const ast::DropTable& drop)
{
    return bound::DropTable{table(drop.table)};
}

} // namespace storage::sql
