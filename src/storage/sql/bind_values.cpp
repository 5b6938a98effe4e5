#include "storage/sql/bind.h"

#include "storage/schema/column_value.h"
#include "storage/sql/bind_support.h"

using namespace Qt::StringLiterals;

// What statements write into columns. A value that is written out is brought to the column's type
// here; what is read from rows is brought to it by the engine, where it is not of it already.
namespace storage::sql {
namespace {

using bound::Type;
using schema::ColumnType;

// Whether no value of the type can be brought to the column's.
bool isRefused(Type type, ColumnType column)
{
    if (type == Type::DateTime)
        return column != ColumnType::Text && column != ColumnType::DateTime;
    return isNumber(type) && column == ColumnType::DateTime;
}

// Whether the column keeps every such value as it is; `source` is the column that the values are
// read from, null when they are computed.
bool isKept(Type type, const schema::Column* source, const schema::Column& column)
{
    const auto isOf = [source](ColumnType wanted) { return source && source->type == wanted; };
    switch (column.type) {
    case ColumnType::AutoNumber:
        return isOf(ColumnType::AutoNumber);
    case ColumnType::Long:
        return isOf(ColumnType::Long) || isOf(ColumnType::AutoNumber);
    case ColumnType::Real:
        return isOf(ColumnType::Real) || type == Type::Whole;
    case ColumnType::DateTime:
        return type == Type::DateTime;
    case ColumnType::Text:
        break;
    }
    const bool isShort = source && source->maxLength > 0 && source->maxLength <= column.maxLength;
    return type == Type::Text && (column.maxLength <= 0 || isShort);
}

} // namespace

bound::ExpressionPtr Binder::assigned(bound::ExpressionPtr value, const schema::Column& column,
                                      const std::vector<bound::Source>& sources)
{
    const int position = value->position;
    if (const auto* literal = std::get_if<bound::Literal>(&value->node)) {
        const auto fitting = fitColumn(literal->value, column);
        if (!fitting)
            fail(ErrorKind::Type, position, misfitMessage(literal->value, column.name));
        return makeLiteral(fitting.value_or(Value()), position);
    }
    if (fitsAsItIs(*value, column, sources))
        return value;
    const Type type = value->type;
    return std::make_unique<bound::Expression>(
        bound::Expression{type, position, bound::Fitted{std::move(value), &column}});
}

// The rows are those that the SELECT gives by itself: what repeats and in which order is settled
// before a value is brought to another type.
void Binder::fitSelected(bound::Select* select, bound::Insert* insert)
{
    const bool isUnion = select->parts.size() > 1;
    for (size_t i = 0; i < insert->columns.size(); ++i) {
        const schema::Column& column = insert->table->columns()[insert->columns[i]];
        bool allFit = true;
        for (bound::SelectPart& part : select->parts) {
            bound::ExpressionPtr& value = part.outputs[i].expression;
            if (!std::holds_alternative<bound::Literal>(value->node)) {
                allFit = fitsAsItIs(*value, column, part.sources) && allFit;
                continue;
            }
            const Value written = std::get<bound::Literal>(value->node).value;
            bound::ExpressionPtr fitting =
                assigned(makeLiteral(written, value->position), column, part.sources);
            if (!isUnion)
                value = std::move(fitting);
            else
                allFit = std::get<bound::Literal>(fitting->node).value == written && allFit;
        }
        insert->fitted.push_back(!allFit);
    }
}

bool Binder::fitsAsItIs(const bound::Expression& value, const schema::Column& column,
                        const std::vector<bound::Source>& sources)
{
    if (isRefused(value.type, column.type))
        fail(ErrorKind::Type, value.position,
             u"列"_s + quoted(column.name) + u"に入らない型の値です。"_s);
    const auto* place = std::get_if<bound::Column>(&value.node);
    const schema::Column* source = place
        ? &sources[static_cast<size_t>(place->source)].table->columns()[place->index]
        : nullptr;
    return isKept(value.type, source, column);
}

} // namespace storage::sql
