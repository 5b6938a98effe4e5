#include "storage/sql/bind.h"

#include "storage/sql/bind_support.h"
#include "text/collate.h"
#include "text/dates.h"
#include "text/fold.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

using bound::Form;
using bound::Type;

const QString kMisfit = u"比べる値の型が合いません。"_s;

bound::ExpressionPtr makeCondition(int position, auto node)
{
    return std::make_unique<bound::Expression>(
        bound::Expression{Type::Condition, position, std::move(node)});
}

bound::ExpressionPtr negatedWhen(bool negated, bound::ExpressionPtr operand)
{
    if (!negated)
        return operand;
    const int position = operand->position;
    return makeCondition(position, bound::Not{std::move(operand)});
}

bool isText(const bound::ExpressionPtr& expression)
{
    return expression->type == Type::Text;
}

// What the order of texts runs over.
Form orderForm(std::initializer_list<const bound::Expression*> texts)
{
    const bool ofDays =
        std::ranges::any_of(texts, [](const bound::Expression* text) { return isDay(*text); });
    return ofDays ? Form::Fold : Form::Key;
}

bool isOrder(ast::ComparisonKind kind)
{
    return kind != ast::ComparisonKind::Equal && kind != ast::ComparisonKind::NotEqual;
}

std::optional<Value> asNumber(const Value& text)
{
    const QString digits = text::fold(text.toText()).trimmed();
    bool read = false;
    const qint64 whole = digits.toLongLong(&read);
    if (read)
        return Value(whole);
    const double real = digits.toDouble(&read);
    return read ? std::optional(Value(real)) : std::nullopt;
}

FirstCharacters charactersOf(const text::LikeFirst& first)
{
    std::vector<CodePointRange> ranges;
    for (const auto& [lo, hi] : first.ranges)
        ranges.push_back({lo, hi});
    const FirstCharacters listed = normalized(std::move(ranges));
    return first.negated ? complement(listed) : listed;
}

// Whether a comparison in this form says that `a` comes before `b`; nothing when that is not known
// from the values alone.
std::optional<bool> isBefore(Form form, const Value& a, const Value& b)
{
    const auto isNumeric = [](const Value& value) {
        return value.type() == ValueType::Integer || value.type() == ValueType::Real;
    };
    if (a.type() == ValueType::Integer && b.type() == ValueType::Integer)
        return a.toInteger() < b.toInteger();
    if (isNumeric(a) && isNumeric(b))
        return a.toReal() < b.toReal();
    if (a.type() != b.type() || a.isNull())
        return std::nullopt;
    if (a.type() == ValueType::DateTime)
        return a.toText() < b.toText();
    return form == Form::Key ? text::sortKey(a.toText()) < text::sortKey(b.toText())
                             : text::fold(a.toText()).toUtf8() < text::fold(b.toText()).toUtf8();
}

// Bounds that are written out are put in order here, so that an index can be read between them.
void putInOrder(bound::Between* between)
{
    const auto* low = std::get_if<bound::Literal>(&between->low->node);
    const auto* high = std::get_if<bound::Literal>(&between->high->node);
    if (!low || !high)
        return;
    const std::optional<bool> reversed = isBefore(between->form, high->value, low->value);
    between->inOrder = reversed.has_value();
    if (reversed.value_or(false))
        std::swap(between->low, between->high);
}

bound::Like likeOf(bound::ExpressionPtr value, std::variant<QString, bound::Argument> pattern,
                   std::optional<text::LikePrefix> prefix)
{
    bound::Like result{{}, std::move(pattern), std::move(prefix)};
    if (auto* joined = std::get_if<bound::Concatenation>(&value->node))
        result.parts = std::move(joined->parts);
    else
        result.parts.push_back(std::move(value));
    return result;
}

// What several operands ask of the first character of one column.
struct Beginnings {
    bound::BeginsWith* kept;            // the operand that will say it for all
    std::vector<CodePointRange> ranges; // all that are listed; for And, all that are left out
};

// Joins what the operands ask of one column's first character into one of them: an index can then
// be read in one stretch where four patterns touch.
void mergeBeginnings(bound::Logic* logic)
{
    const bool isOr = logic->kind == ast::LogicKind::Or;
    std::vector<bound::ExpressionPtr> kept;
    std::vector<Beginnings> groups; // one a column
    for (bound::ExpressionPtr& operand : logic->operands) {
        auto* begins = std::get_if<bound::BeginsWith>(&operand->node);
        if (!begins) {
            kept.push_back(std::move(operand));
            continue;
        }
        auto group = std::ranges::find_if(
            groups, [begins](const Beginnings& g) { return g.kept->column == begins->column; });
        if (group == groups.end()) {
            group = groups.insert(groups.end(), Beginnings{begins, {}});
            kept.push_back(std::move(operand));
        }
        const FirstCharacters& own = begins->characters;
        std::ranges::copy(isOr ? own : complement(own), std::back_inserter(group->ranges));
    }
    for (Beginnings& group : groups) {
        const FirstCharacters all = normalized(std::move(group.ranges));
        group.kept->characters = isOr ? all : complement(all);
    }
    logic->operands = std::move(kept);
}

} // namespace

// A literal takes the other side's type when it can be read as such.
bool Binder::convertLiteral(bound::Expression* literal, Type type)
{
    auto* node = std::get_if<bound::Literal>(&literal->node);
    if (!node || literal->type != Type::Text)
        return false;
    if (isNumber(type)) {
        const auto number = asNumber(node->value);
        if (!number)
            return false;
        literal->type = number->type() == ValueType::Integer ? Type::Whole : Type::Real;
        node->value = *number;
        return true;
    }
    const auto moment =
        type == Type::DateTime ? text::parseDateTime(node->value.toText()) : std::nullopt;
    if (!moment)
        return false;
    literal->type = Type::DateTime;
    node->value = Value(*moment);
    return true;
}

bool Binder::fitTogether(bound::Expression* left, bound::Expression* right)
{
    if (left->type == Type::Null || right->type == Type::Null || left->type == right->type
        || (isNumber(left->type) && isNumber(right->type)))
        return true;
    if (convertLiteral(right, left->type) || convertLiteral(left, right->type))
        return true;
    fail(ErrorKind::Type, right->position, kMisfit);
    return false;
}

bound::ExpressionPtr Binder::node(const ast::Comparison& node, int position, const Scope& scope)
{
    bound::Comparison result{node.kind, Form::Plain, bindValue(*node.left, scope),
                             bindValue(*node.right, scope)};
    fitTogether(result.left.get(), result.right.get());
    if (isText(result.left) || isText(result.right))
        result.form =
            isOrder(node.kind) ? orderForm({result.left.get(), result.right.get()}) : Form::Fold;
    return makeCondition(position, std::move(result));
}

bound::ExpressionPtr Binder::node(const ast::Between& node, int position, const Scope& scope)
{
    bound::Between result{Form::Plain, bindValue(*node.value, scope), bindValue(*node.low, scope),
                          bindValue(*node.high, scope), node.negated};
    fitTogether(result.value.get(), result.low.get());
    fitTogether(result.value.get(), result.high.get());
    if (isText(result.value) || isText(result.low))
        result.form = orderForm({result.value.get(), result.low.get(), result.high.get()});
    putInOrder(&result);
    return makeCondition(position, std::move(result));
}

bound::ExpressionPtr Binder::node(const ast::In& node, int position, const Scope& scope)
{
    bound::In result{Form::Plain, bindValue(*node.value, scope), {}, node.negated};
    for (const ast::ExpressionPtr& item : node.list) {
        result.list.push_back(bindValue(*item, scope));
        fitTogether(result.value.get(), result.list.back().get());
    }
    if (isText(result.value))
        result.form = Form::Fold;
    return makeCondition(position, std::move(result));
}

bound::ExpressionPtr Binder::node(const ast::Like& node, int position, const Scope& scope)
{
    bound::ExpressionPtr value = bindValue(*node.value, scope);
    const bound::ExpressionPtr pattern = bindValue(*node.pattern, scope);
    const auto* argument = std::get_if<bound::Argument>(&pattern->node);
    if (argument && isText(pattern))
        return negatedWhen(node.negated,
                           makeCondition(position, likeOf(std::move(value), *argument, {})));
    const auto* literal = std::get_if<bound::Literal>(&pattern->node);
    if (!literal) {
        fail(ErrorKind::Syntax, pattern->position,
             u"Like の右には文字列か「?」の文字列が必要です。"_s);
        return makeLiteral(Value(), position);
    }
    if (literal->value.isNull())
        return makeLiteral(Value(), position);
    const QString written = literal->value.toText();
    const text::LikePattern matcher(written);
    if (!matcher.valid())
        fail(ErrorKind::Syntax, pattern->position, matcher.error().left(100));
    std::optional<text::LikePrefix> prefix;
    const auto* column = std::get_if<bound::Column>(&value->node);
    if (column && isText(value)) {
        if (const auto first = matcher.firstOnly())
            return negatedWhen(
                node.negated,
                makeCondition(position, bound::BeginsWith{*column, charactersOf(*first)}));
        prefix = matcher.prefix();
    }
    return negatedWhen(node.negated,
                       makeCondition(position, likeOf(std::move(value), written, prefix)));
}

bound::ExpressionPtr Binder::node(const ast::IsNull& node, int position, const Scope& scope)
{
    return makeCondition(position, bound::IsNull{bindValue(*node.value, scope), node.negated});
}

bound::ExpressionPtr Binder::node(const ast::Not& node, int position, const Scope& scope)
{
    return makeCondition(position, bound::Not{bindCondition(*node.operand, scope)});
}

bound::ExpressionPtr Binder::node(const ast::Logic& node, int position, const Scope& scope)
{
    bound::Logic result{node.kind, {}};
    for (const ast::ExpressionPtr& operand : node.operands)
        result.operands.push_back(bindCondition(*operand, scope));
    mergeBeginnings(&result);
    if (result.operands.size() == 1)
        return std::move(result.operands.front());
    return makeCondition(position, std::move(result));
}

} // namespace storage::sql
