#include "storage/sql/bind.h"

#include "storage/sql/bind_support.h"
#include "text/fold.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

using bound::Type;
using schema::ColumnType;

const QString kUnnamed = u"Expr"_s;
constexpr int kFirstUnnamed = 1000;

// More than any engine takes, and few enough that nothing here grows out of hand.
constexpr size_t kMaxParts = 500;
constexpr size_t kMaxSources = 64;
constexpr size_t kMaxColumns = 1000;

ColumnType columnTypeOf(Type type)
{
    switch (type) {
    case Type::Whole:
    case Type::Condition:
        return ColumnType::Long;
    case Type::Real:
        return ColumnType::Real;
    case Type::DateTime:
        return ColumnType::DateTime;
    case Type::Null:
    case Type::Text:
        break;
    }
    return ColumnType::Text;
}

bound::ExpressionPtr columnOf(const bound::Column& column, ColumnType type, int position)
{
    Type bound = Type::Text;
    if (type == ColumnType::AutoNumber || type == ColumnType::Long)
        bound = Type::Whole;
    else if (type == ColumnType::Real)
        bound = Type::Real;
    else if (type == ColumnType::DateTime)
        bound = Type::DateTime;
    return std::make_unique<bound::Expression>(bound::Expression{bound, position, column});
}

enum class Mixture { None, Aggregates, Columns, Both };

Mixture operator|(Mixture a, Mixture b)
{
    return static_cast<Mixture>(static_cast<int>(a) | static_cast<int>(b));
}

// Whether an output is computed from aggregates, from the rows themselves, or wrongly from both.
Mixture mixtureOf(const bound::Expression& expression)
{
    if (std::holds_alternative<bound::Aggregate>(expression.node))
        return Mixture::Aggregates;
    if (std::holds_alternative<bound::Column>(expression.node))
        return Mixture::Columns;
    Mixture result = Mixture::None;
    if (const auto* joined = std::get_if<bound::Concatenation>(&expression.node)) {
        for (const auto& part : joined->parts)
            result = result | mixtureOf(*part);
    } else if (const auto* arithmetic = std::get_if<bound::Arithmetic>(&expression.node)) {
        for (const auto& term : arithmetic->terms)
            result = result | mixtureOf(*term.operand);
    } else if (const auto* negative = std::get_if<bound::Negative>(&expression.node)) {
        result = mixtureOf(*negative->operand);
    }
    return result;
}

// Rows that each carry the key of every table in them cannot repeat.
bool hasEveryKey(const bound::SelectPart& part)
{
    for (size_t source = 0; source < part.sources.size(); ++source) {
        const schema::Table& table = *part.sources[source].table;
        const bound::Column key{static_cast<qsizetype>(source), table.indexOf(table.keyColumn())};
        const auto isKey = [&key](const bound::Output& output) {
            const auto* column = std::get_if<bound::Column>(&output.expression->node);
            return column && *column == key;
        };
        if (key.index < 0 || std::ranges::none_of(part.outputs, isKey))
            return false;
    }
    return true;
}

// ORDER BY 2 means the second column.
std::optional<size_t> outputNumbered(const Value& literal, const bound::SelectPart& part)
{
    const qint64 number = literal.type() == ValueType::Integer ? literal.toInteger() : 0;
    if (number < 1 || static_cast<size_t>(number) > part.outputs.size())
        return std::nullopt;
    return static_cast<size_t>(number) - 1;
}

} // namespace

bound::Select Binder::bindSelect(const ast::Select& select)
{
    bound::Select result;
    const int position = select.parts.front().items.front().position;
    if (select.parts.size() > kMaxParts || select.order.size() > kMaxColumns)
        fail(ErrorKind::Syntax, position, u"文が長すぎます。"_s);
    for (const ast::SelectPart& part : select.parts) {
        if (!failed())
            result.parts.push_back(bindPart(part));
    }
    if (!failed())
        unify(&result, select);
    for (const ast::OrderTerm& term : select.order) {
        if (!failed())
            result.order.push_back(bindOrder(term, result));
    }
    return result;
}

bound::SelectPart Binder::bindPart(const ast::SelectPart& part)
{
    bound::SelectPart result;
    result.distinct = part.distinct;
    result.unionAll = part.unionAll;
    result.top = part.top;
    if (part.from)
        result.from = bindFrom(*part.from, &result.sources);
    for (const ast::SelectItem& item : part.items) {
        if (result.outputs.size() > kMaxColumns)
            fail(ErrorKind::Syntax, item.position, u"SELECT の列が多すぎます。"_s);
        if (failed())
            break;
        if (item.expression)
            addItem(item, &result);
        else
            addStar(item, &result);
    }
    Mixture mixture = Mixture::None;
    for (const bound::Output& output : result.outputs) {
        mixture = mixture | mixtureOf(*output.expression);
        if (mixture == Mixture::Both)
            fail(ErrorKind::Syntax, output.expression->position,
                 u"集計関数と集計しない列は一緒に SELECT できません。"_s);
    }
    result.aggregated = mixture == Mixture::Aggregates;
    if (part.where)
        result.where = bindCondition(*part.where, Scope{&result.sources, false});
    if (result.aggregated || hasEveryKey(result))
        result.distinct = false;
    return result;
}

bound::From Binder::bindFrom(const ast::From& from, std::vector<bound::Source>* sources)
{
    bound::From result;
    result.first = bindTerm(from.first, sources);
    for (const ast::JoinStep& step : from.steps) {
        bound::JoinStep joined;
        joined.kind = step.kind;
        joined.right = bindTerm(step.right, sources);
        if (step.condition)
            joined.condition = bindCondition(*step.condition, Scope{sources, false});
        result.steps.push_back(std::move(joined));
    }
    // Joins in parentheses at the front mean the same without them.
    if (auto* inner = std::get_if<std::unique_ptr<bound::From>>(&result.first)) {
        bound::From flat = std::move(**inner);
        std::ranges::move(result.steps, std::back_inserter(flat.steps));
        return flat;
    }
    return result;
}

bound::FromTerm Binder::bindTerm(const ast::FromTerm& term, std::vector<bound::Source>* sources)
{
    if (const auto* inner = std::get_if<std::unique_ptr<ast::From>>(&term))
        return std::make_unique<bound::From>(bindFrom(**inner, sources));
    const auto& name = std::get<ast::TableName>(term);
    if (sources->size() >= kMaxSources)
        fail(ErrorKind::Syntax, name.position, u"FROM の表が多すぎます。"_s);
    if (failed())
        return qsizetype{0};
    const schema::Table* found = table(name);
    bound::Source source{found, name.alias.isEmpty() ? found->name() : name.alias};
    const QString folded = text::foldName(source.name);
    for (const bound::Source& other : *sources) {
        if (text::foldName(other.name) == folded)
            fail(ErrorKind::Name, name.position,
                 u"表"_s + quoted(source.name) + u"が重なっています。別名を付けて下さい。"_s);
    }
    sources->push_back(std::move(source));
    return static_cast<qsizetype>(sources->size()) - 1;
}

void Binder::addStar(const ast::SelectItem& item, bound::SelectPart* part)
{
    const QString folded = text::foldName(item.starTable);
    bool found = false;
    for (size_t i = 0; i < part->sources.size(); ++i) {
        const bound::Source& source = part->sources[i];
        if (!item.starTable.isEmpty() && text::foldName(source.name) != folded)
            continue;
        found = true;
        const auto& columns = source.table->columns();
        for (int index = 0; index < columns.size(); ++index) {
            const schema::Column& column = columns[index];
            const bound::Column place{static_cast<qsizetype>(i), index, column.isDay};
            part->outputs.push_back({columnOf(place, column.type, item.position),
                                     {column.name, source.name, column.type}});
        }
    }
    if (!found && item.starTable.isEmpty())
        fail(ErrorKind::Syntax, item.position, u"「*」には FROM が必要です。"_s);
    else if (!found)
        fail(ErrorKind::Name, item.position,
             u"表"_s + quoted(item.starTable) + u"はこの文の中にありません。"_s);
}

void Binder::addItem(const ast::SelectItem& item, bound::SelectPart* part)
{
    bound::Output output;
    output.expression = bindValue(*item.expression, Scope{&part->sources, true});
    output.column.type = columnTypeOf(output.expression->type);
    if (const auto* place = std::get_if<bound::Column>(&output.expression->node)) {
        const bound::Source& source = part->sources[static_cast<size_t>(place->source)];
        const schema::Column& column = source.table->columns()[place->index];
        output.column = {column.name, source.name, column.type};
    }
    if (!item.alias.isEmpty())
        output.column.name = item.alias;
    else if (output.column.name.isEmpty())
        output.column.name =
            kUnnamed + QString::number(kFirstUnnamed + static_cast<int>(part->outputs.size()));
    part->outputs.push_back(std::move(output));
}

// The parts of a union give columns of one number and, where they differ, of a type that holds
// both.
void Binder::unify(bound::Select* select, const ast::Select& written)
{
    const bool dropsRepeats = select->parts.size() > 1
        && std::none_of(select->parts.begin() + 1, select->parts.end(),
                        [](const bound::SelectPart& part) { return part.unionAll; });
    bound::SelectPart& first = select->parts.front();
    for (size_t i = 0; i < select->parts.size(); ++i) {
        bound::SelectPart& part = select->parts[i];
        if (dropsRepeats && !part.top)
            part.distinct = false;
        if (part.outputs.size() != first.outputs.size()) {
            fail(ErrorKind::Syntax, written.parts[i].items.front().position,
                 u"UNION の列の数が合いません。"_s);
            return;
        }
        for (size_t j = 0; j < part.outputs.size(); ++j) {
            const ColumnType type = part.outputs[j].column.type;
            ColumnType& common = first.outputs[j].column.type;
            const bool number = type != ColumnType::Text && type != ColumnType::DateTime
                && common != ColumnType::Text && common != ColumnType::DateTime;
            if (type != common)
                common = !number                                             ? ColumnType::Text
                    : type == ColumnType::Real || common == ColumnType::Real ? ColumnType::Real
                                                                             : ColumnType::Long;
        }
    }
}

bound::OrderTerm Binder::bindOrder(const ast::OrderTerm& term, const bound::Select& select)
{
    const bound::SelectPart& part = select.parts.front();
    const int position = term.expression->position;
    bound::OrderTerm result;
    result.descending = term.descending;
    if (const auto* name = std::get_if<ast::ColumnName>(&term.expression->node))
        result.output = outputNamed(*name, select);
    else if (const auto* literal = std::get_if<ast::Literal>(&term.expression->node))
        result.output = outputNumbered(literal->value, part);
    if (result.output)
        return result;
    if (select.parts.size() > 1 || part.aggregated) {
        fail(ErrorKind::Name, position, u"並べ替えの列が SELECT の列にありません。"_s);
        return result;
    }
    result.expression = bindValue(*term.expression, Scope{&part.sources, false});
    if (!part.distinct || failed())
        return result;
    const auto* column = std::get_if<bound::Column>(&result.expression->node);
    for (size_t i = 0; i < part.outputs.size() && column; ++i) {
        const auto* output = std::get_if<bound::Column>(&part.outputs[i].expression->node);
        if (output && *output == *column)
            result.output = i;
    }
    if (!result.output)
        fail(ErrorKind::Name, position,
             u"DISTINCT では、並べ替えの列が SELECT の列にも必要です。"_s);
    return result;
}

// An output column by its own name: an alias wherever it stands, any name behind a union.
std::optional<size_t> Binder::outputNamed(const ast::ColumnName& name, const bound::Select& select)
{
    const bound::SelectPart& part = select.parts.front();
    const bool byAnyName = select.parts.size() > 1 || part.aggregated;
    const QString folded = text::foldName(name.column);
    const QString foldedTable = text::foldName(name.table);
    for (size_t i = 0; i < part.outputs.size(); ++i) {
        const ResultColumn& column = part.outputs[i].column;
        const auto* place = std::get_if<bound::Column>(&part.outputs[i].expression->node);
        const QString* own = nullptr;
        if (place)
            own = &part.sources[static_cast<size_t>(place->source)]
                       .table->columns()[place->index]
                       .name;
        const bool isAlias = !own || *own != column.name;
        if (text::foldName(column.name) == folded && (byAnyName || isAlias)
            && (name.table.isEmpty() || (byAnyName && text::foldName(column.table) == foldedTable)))
            return i;
    }
    return std::nullopt;
}

} // namespace storage::sql
