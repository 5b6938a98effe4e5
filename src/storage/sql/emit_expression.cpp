#include "storage/sql/emit.h"

#include "text/fold.h"

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

const Value* literalIn(const bound::Expression& expression)
{
    const auto* literal = std::get_if<bound::Literal>(&expression.node);
    return literal ? &literal->value : nullptr;
}

QString sign(ast::ComparisonKind kind)
{
    switch (kind) {
    case ast::ComparisonKind::Equal:
        return u" = "_s;
    case ast::ComparisonKind::NotEqual:
        return u" <> "_s;
    case ast::ComparisonKind::Less:
        return u" < "_s;
    case ast::ComparisonKind::LessOrEqual:
        return u" <= "_s;
    case ast::ComparisonKind::Greater:
        return u" > "_s;
    case ast::ComparisonKind::GreaterOrEqual:
        return u" >= "_s;
    }
    return QString();
}

QString function(ast::AggregateKind kind)
{
    switch (kind) {
    case ast::AggregateKind::Count:
        return u"count"_s;
    case ast::AggregateKind::Sum:
        return u"sum"_s;
    case ast::AggregateKind::Max:
        return u"max"_s;
    case ast::AggregateKind::Min:
        return u"min"_s;
    }
    return QString();
}

QString notWhen(bool negated)
{
    return negated ? u" NOT"_s : QString();
}

} // namespace

QString Emitter::value(const bound::Expression& expression)
{
    return std::visit([this](const auto& bound) { return node(bound); }, expression.node);
}

// Literals are folded once, here, and not for every row.
QString Emitter::folded(const bound::Expression& expression)
{
    const Value* literal = literalIn(expression);
    if (literal && literal->type() == ValueType::Text)
        return parameter(Value(text::fold(literal->toText())));
    const auto* argument = std::get_if<bound::Argument>(&expression.node);
    if (argument && expression.type == bound::Type::Text)
        return parameter(Slot{argument->place, SlotForm::Folded, {}});
    return m_dialect.fold(value(expression));
}

QString Emitter::inForm(bound::Form form, const bound::Expression& expression)
{
    switch (form) {
    case bound::Form::Plain:
        break;
    case bound::Form::Fold:
        return folded(expression);
    case bound::Form::Key:
        return m_dialect.key(value(expression));
    }
    return value(expression);
}

QStringList Emitter::values(const std::vector<bound::ExpressionPtr>& expressions)
{
    QStringList texts;
    for (const bound::ExpressionPtr& expression : expressions)
        texts.append(value(*expression));
    return texts;
}

QString Emitter::parameter(Parameter value)
{
    m_parameters.append(std::move(value));
    return m_dialect.parameter(m_parameters.size());
}

QString Emitter::range(const QString& expression, const text::FoldRange& bounds)
{
    QString text = expression + u" >= "_s + parameter(Value(bounds.lower));
    if (!bounds.upper.isEmpty())
        text += u" AND "_s + expression + u" < "_s + parameter(Value(bounds.upper));
    return text;
}

// Folded texts that begin with one of these; the empty text begins with nothing.
QString Emitter::range(const QString& expression, CodePointRange characters)
{
    const text::FoldRange bounds = text::foldRange(characters.first, characters.last);
    if (characters.first > 0)
        return range(expression, bounds);
    const QString text = expression + u" > ''"_s;
    return bounds.upper.isEmpty()
        ? text
        : text + u" AND "_s + expression + u" < "_s + parameter(Value(bounds.upper));
}

QString Emitter::column(const bound::Column& column)
{
    const bound::Source& source = (*m_sources)[static_cast<size_t>(column.source)];
    QString name = m_dialect.name(source.table->columns()[column.index].name);
    if (m_sources->size() > 1)
        name = m_dialect.name(source.name) + u'.' + name;
    return m_unindexed ? m_dialect.unindexed(name) : name;
}

QString Emitter::node(const bound::Literal& node)
{
    return node.value.isNull() ? u"NULL"_s : parameter(node.value);
}

QString Emitter::node(const bound::Argument& node)
{
    return parameter(Slot{node.place, SlotForm::Plain, {}});
}

QString Emitter::node(const bound::Column& node)
{
    return column(node);
}

QString Emitter::node(const bound::Concatenation& node)
{
    return m_dialect.join(values(node.parts));
}

QString Emitter::node(const bound::Fitted& node)
{
    if (const auto* argument = std::get_if<bound::Argument>(&node.operand->node))
        return parameter(Slot{argument->place, SlotForm::Fitted, *node.column});
    return m_dialect.fitted(value(*node.operand), *node.column, m_rowLabel, m_row);
}

QString Emitter::node(const bound::Arithmetic& node)
{
    QString text = value(*node.terms.front().operand);
    for (size_t i = 1; i < node.terms.size(); ++i) {
        const auto& term = node.terms[i];
        if (term.sign == u'/') // never the division of whole numbers
            text += u" * 1.0"_s;
        text += u' ' + QChar(term.sign) + u' ' + value(*term.operand);
    }
    return u'(' + text + u')';
}

QString Emitter::node(const bound::Negative& node)
{
    return u"(- "_s + value(*node.operand) + u')';
}

QString Emitter::node(const bound::Comparison& node)
{
    bound::Form form = node.form;
    const auto* asked = std::get_if<bound::Column>(&node.left->node);
    const Value* text = literalIn(*node.right);
    // Keys are equal exactly when the texts fold alike.
    if (m_byKey && asked && *asked == *m_byKey && text && text->type() == ValueType::Text
        && node.form == bound::Form::Fold && node.kind == ast::ComparisonKind::Equal)
        form = bound::Form::Key;
    const QString left = inForm(form, *node.left);
    return u'(' + left + sign(node.kind) + inForm(form, *node.right) + u')';
}

QString Emitter::node(const bound::Between& node)
{
    const QString tested = inForm(node.form, *node.value);
    const QString low = inForm(node.form, *node.low);
    const QString high = inForm(node.form, *node.high);
    if (node.inOrder)
        return u'(' + tested + notWhen(node.negated) + u" BETWEEN "_s + low + u" AND "_s + high
            + u')';
    const QString condition = u'(' + m_dialect.between(tested, low, high) + u')';
    return node.negated ? u"(NOT "_s + condition + u')' : condition;
}

QString Emitter::node(const bound::In& node)
{
    const QString tested = inForm(node.form, *node.value);
    QStringList items;
    for (const bound::ExpressionPtr& item : node.list)
        items.append(inForm(node.form, *item));
    return u'(' + tested + notWhen(node.negated) + u" IN ("_s + items.join(u", "_s) + u"))"_s;
}

QString Emitter::node(const bound::Like& node)
{
    const QStringList parts = values(node.parts);
    if (const auto* argument = std::get_if<bound::Argument>(&node.pattern))
        return m_dialect.like(parts, parameter(Slot{argument->place, SlotForm::Pattern, {}}));
    const auto& pattern = std::get<QString>(node.pattern);
    if (!node.prefix)
        return m_dialect.like(parts, parameter(Value(m_dialect.likePattern(pattern))));
    const QString tested = m_dialect.fold(parts.front());
    const text::LikePrefix& prefix = *node.prefix;
    if (prefix.whole)
        return u'(' + tested + u" = "_s + parameter(Value(prefix.literal)) + u')';
    const text::FoldRange bounds = prefix.literal.isEmpty() ? text::foldRange(prefix.lo, prefix.hi)
                                                            : text::foldRange(prefix.literal);
    const QString begins = range(tested, bounds);
    return u'(' + begins + u" AND "_s
        + m_dialect.like(parts, parameter(Value(m_dialect.likePattern(pattern)))) + u')';
}

// Besides the ranges themselves come one range over them all and, over the sort key, one that holds
// them: with either an index can be read in order from end to end.
QString Emitter::node(const bound::BeginsWith& node)
{
    const QString plain = column(node.column);
    const QString tested = m_dialect.fold(plain);
    if (node.characters.empty())
        return u'(' + tested + u" <> "_s + tested + u')';
    QStringList ranges;
    for (const CodePointRange& each : node.characters)
        ranges.append(range(tested, each));
    QString text = ranges.size() == 1 ? ranges.front() : u'(' + ranges.join(u" OR "_s) + u')';
    if (m_unindexed)
        return u'(' + text + u')';
    const char32_t first = node.characters.front().first;
    const char32_t last = node.characters.back().last;
    if (ranges.size() > 1)
        text += u" AND "_s + range(tested, CodePointRange{first, last});
    const bool byFold = node.column.isDay || !m_dialect.keysAreBytes();
    const auto keys = byFold ? std::nullopt : text::firstCharRange(first, last);
    if (keys) {
        const QString key = m_dialect.key(plain);
        text += u" AND "_s + key + u" >= "_s + parameter(keys->lower) + u" AND "_s + key + u" < "_s
            + parameter(keys->upper);
    }
    return u'(' + text + u')';
}

QString Emitter::node(const bound::IsNull& node)
{
    return u'(' + value(*node.value) + u" IS"_s + notWhen(node.negated) + u" NULL)"_s;
}

QString Emitter::node(const bound::Not& node)
{
    return u"(NOT "_s + value(*node.operand) + u')';
}

QString Emitter::node(const bound::Logic& node)
{
    const QString word = node.kind == ast::LogicKind::And ? u" AND "_s : u" OR "_s;
    return u'(' + values(node.operands).join(word) + u')';
}

// The largest text is the last one in order, and the text itself is wanted.
QString Emitter::node(const bound::Aggregate& node)
{
    const bool extreme =
        node.kind == ast::AggregateKind::Max || node.kind == ast::AggregateKind::Min;
    if (!extreme || node.argument->type != bound::Type::Text) {
        m_rowsNeeded = true;
        return function(node.kind) + u'(' + (node.argument ? value(*node.argument) : u"*"_s) + u')';
    }
    const QString argument = value(*node.argument);
    const QString order = m_dialect.ordered(ordered(argument, bound::isDay(*node.argument)),
                                            node.kind == ast::AggregateKind::Max);
    return u"(SELECT "_s + argument + fromWhere(*m_part, argument + u" IS NOT NULL"_s)
        + u" ORDER BY "_s + order + u' ' + m_dialect.window(1, 0) + u')';
}

} // namespace storage::sql
