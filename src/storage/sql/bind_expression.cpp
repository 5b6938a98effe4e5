#include "storage/sql/bind.h"

#include "storage/sql/bind_support.h"
#include "text/fold.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

using bound::Type;

Type typeOf(ValueType type)
{
    switch (type) {
    case ValueType::Null:
        return Type::Null;
    case ValueType::Integer:
        return Type::Whole;
    case ValueType::Real:
        return Type::Real;
    case ValueType::Text:
        return Type::Text;
    case ValueType::DateTime:
        return Type::DateTime;
    }
    return Type::Null;
}

Type typeOf(schema::ColumnType type)
{
    switch (type) {
    case schema::ColumnType::AutoNumber:
    case schema::ColumnType::Long:
        return Type::Whole;
    case schema::ColumnType::Real:
        return Type::Real;
    case schema::ColumnType::Text:
        return Type::Text;
    case schema::ColumnType::DateTime:
        return Type::DateTime;
    }
    return Type::Null;
}

Type typeOf(const bound::Aggregate& node)
{
    if (node.kind == ast::AggregateKind::Count)
        return Type::Whole;
    return node.argument->type;
}

bound::ExpressionPtr make(Type type, int position, auto node)
{
    return std::make_unique<bound::Expression>(bound::Expression{type, position, std::move(node)});
}

} // namespace

QString quoted(const QString& name)
{
    constexpr qsizetype shown = 40;
    return u'「' + (name.size() > shown ? name.left(shown) + u'…' : name) + u'」';
}

bound::ExpressionPtr makeLiteral(Value value, int position)
{
    const Type type = typeOf(value.type());
    return make(type, position, bound::Literal{std::move(value)});
}

bound::ExpressionPtr Binder::bindAny(const ast::Expression& expression, const Scope& scope)
{
    return std::visit(
        [&](const auto& written) { return node(written, expression.position, scope); },
        expression.node);
}

bound::ExpressionPtr Binder::bindValue(const ast::Expression& expression, const Scope& scope)
{
    bound::ExpressionPtr result = bindAny(expression, scope);
    if (result->type == Type::Condition)
        fail(ErrorKind::Type, expression.position, u"値が必要なところに条件があります。"_s);
    return result;
}

// A number counts as a condition: it is met when the number is not zero.
bound::ExpressionPtr Binder::bindCondition(const ast::Expression& expression, const Scope& scope)
{
    bound::ExpressionPtr result = bindAny(expression, scope);
    if (isNumber(result->type)) {
        const int position = expression.position;
        return make(Type::Condition, position,
                    bound::Comparison{ast::ComparisonKind::NotEqual, bound::Form::Plain,
                                      std::move(result), makeLiteral(Value(0), position)});
    }
    if (result->type != Type::Condition && result->type != Type::Null)
        fail(ErrorKind::Type, expression.position, u"条件が必要なところに値があります。"_s);
    return result;
}

bound::ExpressionPtr Binder::number(const ast::Expression& expression, const Scope& scope)
{
    bound::ExpressionPtr result = bindValue(expression, scope);
    if (!isNumber(result->type) && result->type != Type::Null
        && !convertLiteral(result.get(), Type::Real))
        fail(ErrorKind::Type, expression.position, u"数値が必要です。"_s);
    return result;
}

bound::ExpressionPtr Binder::node(const ast::Literal& node, int position, const Scope& /*scope*/)
{
    return makeLiteral(node.value, position);
}

// A Null is nothing but Null.
bound::ExpressionPtr Binder::node(const ast::Argument& node, int position, const Scope& /*scope*/)
{
    const Type type = typeOf(m_arguments.value(node.place, ValueType::Null));
    if (type == Type::Null)
        return makeLiteral(Value(), position);
    return make(type, position, bound::Argument{node.place});
}

bound::ExpressionPtr Binder::node(const ast::ColumnName& node, int position, const Scope& scope)
{
    const QString folded = text::foldName(node.table);
    std::optional<bound::Column> found;
    bool tableFound = node.table.isEmpty();
    for (size_t i = 0; i < scope.sources->size(); ++i) {
        const bound::Source& source = (*scope.sources)[i];
        if (!node.table.isEmpty() && text::foldName(source.name) != folded)
            continue;
        tableFound = true;
        const int index = source.table->indexOf(node.column);
        if (index < 0)
            continue;
        if (found)
            fail(ErrorKind::Name, position,
                 u"列"_s + quoted(node.column)
                     + u"はいくつかの表にあります。表の名前を付けて下さい。"_s);
        found = bound::Column{static_cast<qsizetype>(i), index};
    }
    if (!tableFound)
        fail(ErrorKind::Name, position,
             u"表"_s + quoted(node.table) + u"はこの文の中にありません。"_s);
    if (!found) {
        fail(ErrorKind::Name, position, u"列"_s + quoted(node.column) + u"がありません。"_s);
        return makeLiteral(Value(), position);
    }
    const bound::Source& source = (*scope.sources)[static_cast<size_t>(found->source)];
    const schema::Column& column = source.table->columns()[found->index];
    found->isDay = column.isDay;
    return make(typeOf(column.type), position, *found);
}

bound::ExpressionPtr Binder::node(const ast::Concatenation& node, int position, const Scope& scope)
{
    bound::Concatenation result;
    QString constant;
    bool isConstant = true;
    for (const ast::ExpressionPtr& part : node.parts) {
        result.parts.push_back(bindValue(*part, scope));
        const auto* literal = std::get_if<bound::Literal>(&result.parts.back()->node);
        isConstant = isConstant && literal;
        if (isConstant)
            constant += literal->value.toText();
    }
    if (isConstant)
        return makeLiteral(Value(constant), position);
    return make(Type::Text, position, std::move(result));
}

bound::ExpressionPtr Binder::node(const ast::Arithmetic& node, int position, const Scope& scope)
{
    bound::Arithmetic result;
    bool isReal = false;
    for (const ast::Arithmetic::Term& term : node.terms) {
        result.terms.push_back({term.sign, number(*term.operand, scope)});
        isReal = isReal || term.sign == u'/' || result.terms.back().operand->type == Type::Real;
    }
    return make(isReal ? Type::Real : Type::Whole, position, std::move(result));
}

bound::ExpressionPtr Binder::node(const ast::Negative& node, int position, const Scope& scope)
{
    bound::ExpressionPtr operand = number(*node.operand, scope);
    if (const auto* literal = std::get_if<bound::Literal>(&operand->node)) {
        const Value& value = literal->value;
        if (value.type() == ValueType::Integer)
            return makeLiteral(Value(-value.toInteger()), position);
        return makeLiteral(value.isNull() ? Value() : Value(-value.toReal()), position);
    }
    const Type type = operand->type;
    return make(type, position, bound::Negative{std::move(operand)});
}

bound::ExpressionPtr Binder::node(const ast::Aggregate& node, int position, const Scope& scope)
{
    if (!scope.aggregates) {
        fail(ErrorKind::Syntax, position, u"集計関数はここでは使えません。"_s);
        return makeLiteral(Value(), position);
    }
    bound::Aggregate result{node.kind, nullptr};
    const Scope inside{scope.sources, false};
    if (node.argument && node.kind == ast::AggregateKind::Sum)
        result.argument = number(*node.argument, inside);
    else if (node.argument)
        result.argument = bindValue(*node.argument, inside);
    const Type type = typeOf(result);
    return make(type, position, std::move(result));
}

} // namespace storage::sql
