#include "storage/sql/emit.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

// Repeats are dropped before the rows are ordered, and the order is that of keys made from what is
// left; engines want that said in two steps.
bool isWrapped(const bound::Select& select)
{
    return !select.order.empty() && !select.parts.front().aggregated
        && (select.parts.size() > 1 || select.parts.front().distinct);
}

// The column that a term orders by; null when it orders by something else.
const bound::Column* columnOf(const bound::OrderTerm& term, const bound::SelectPart& part)
{
    const bound::Expression& ordered =
        term.output ? *part.outputs[*term.output].expression : *term.expression;
    return std::get_if<bound::Column>(&ordered.node);
}

// Whether the condition asks for one value of the column that the term orders by: it then orders
// nothing, and stands in the way of an index that orders the rest. (What folds alike sorts alike.)
bool isFixed(const bound::OrderTerm& term, const bound::Select& select)
{
    const bound::SelectPart& part = select.parts.front();
    if (select.parts.size() > 1 || !part.where)
        return false;
    const bound::Column* column = columnOf(term, part);
    const auto fixes = [column](const bound::Expression& condition) {
        const auto* comparison = std::get_if<bound::Comparison>(&condition.node);
        if (!comparison || comparison->kind != ast::ComparisonKind::Equal)
            return false;
        const auto* asked = std::get_if<bound::Column>(&comparison->left->node);
        return asked && *asked == *column
            && std::holds_alternative<bound::Literal>(comparison->right->node);
    };
    if (!column)
        return false;
    const auto* logic = std::get_if<bound::Logic>(&part.where->node);
    if (logic && logic->kind == ast::LogicKind::And)
        return std::ranges::any_of(logic->operands, [&fixes](const bound::ExpressionPtr& operand) {
            return fixes(*operand);
        });
    return fixes(*part.where);
}

// Whether the order of a result's column is that of days, in all parts of a union.
bool isDay(const bound::Select& select, size_t output)
{
    return std::ranges::all_of(select.parts, [output](const bound::SelectPart& part) {
        return bound::isDay(*part.outputs[output].expression);
    });
}

bool isText(schema::ColumnType type)
{
    return type == schema::ColumnType::Text;
}

} // namespace

// The names of a result's columns inside a statement of ours.
QString Emitter::numberedColumn(size_t index)
{
    return u"c"_s + QString::number(index + 1);
}

Emitted Emitter::finished(QString text)
{
    return Emitted{std::move(text), takeParameters()};
}

QList<Parameter> Emitter::takeParameters()
{
    QList<Parameter> taken = std::exchange(m_parameters, {});
    if (!m_arguments.isEmpty())
        fill(&taken, m_arguments, m_dialect);
    return taken;
}

Emitted Emitter::rows(const bound::Select& select, bool withAddress)
{
    return finished(this->select(select, withAddress));
}

Emitted Emitter::count(const bound::Select& select)
{
    const bound::SelectPart& first = select.parts.front();
    if (select.parts.size() == 1 && !first.distinct && !first.aggregated && !first.top) {
        m_sources = &first.sources;
        return finished(u"SELECT count(*)"_s + fromWhere(first));
    }
    QString rows = parts(select, false, false);
    if (first.top && select.parts.size() == 1)
        rows += u' ' + m_dialect.window(*first.top, 0);
    return finished(u"SELECT count(*) FROM ("_s + rows + u") AS _rows"_s);
}

// `numbered`: the columns get names by which they can be given from outside.
QString Emitter::select(const bound::Select& select, bool withAddress, bool numbered)
{
    const bool wrapped = isWrapped(select);
    QString text = parts(select, wrapped || numbered, withAddress);
    if (wrapped)
        text = u"SELECT * FROM ("_s + text + u") AS _rows"_s;
    m_sources = &select.parts.front().sources;
    text += order(select, wrapped);
    // A limit of its own must not meet the one that a page puts behind the statement.
    if (const auto& top = select.parts.front().top; top && select.parts.size() == 1)
        return limited(text, *top);
    return text;
}

QString Emitter::limited(const QString& rows, qint64 top) const
{
    return u"SELECT * FROM ("_s + rows + u' ' + m_dialect.window(top, 0) + u") AS _top"_s;
}

QString Emitter::parts(const bound::Select& select, bool numbered, bool withAddress)
{
    QString text;
    m_unionColumns = select.parts.size() > 1 ? &select.parts.front().outputs : nullptr;
    for (const bound::SelectPart& each : select.parts) {
        if (!text.isEmpty())
            text += each.unionAll ? u" UNION ALL "_s : u" UNION "_s;
        // In a union each part counts by itself; the order is that of the whole.
        const QString rows = part(each, numbered, withAddress);
        text += each.top && select.parts.size() > 1 ? limited(rows, *each.top) : rows;
    }
    m_unionColumns = nullptr;
    return text;
}

QString Emitter::part(const bound::SelectPart& part, bool numbered, bool withAddress)
{
    QStringList columns = outputs(part, numbered);
    if (withAddress)
        columns.append(m_dialect.rowAddress(*part.sources.front().table, QString()));
    const QString text =
        (part.distinct ? u"SELECT DISTINCT "_s : u"SELECT "_s) + columns.join(u", "_s);
    return m_rowsNeeded ? text + fromWhere(part) : text;
}

QStringList Emitter::outputs(const bound::SelectPart& part, bool numbered)
{
    m_sources = &part.sources;
    m_part = &part;
    m_rowsNeeded = !part.aggregated;
    QStringList outputs;
    for (size_t i = 0; i < part.outputs.size(); ++i) {
        QString output = value(*part.outputs[i].expression);
        if (m_unionColumns)
            output = m_dialect.typed(output, (*m_unionColumns)[i].column.type);
        if (numbered)
            output += u" AS "_s + m_dialect.name(numberedColumn(i));
        outputs.append(std::move(output));
    }
    return outputs;
}

// `more` is one more condition on the rows.
QString Emitter::fromWhere(const bound::SelectPart& part, const QString& more)
{
    QString text;
    if (part.from)
        text += u" FROM "_s + from(*part.from);
    QStringList conditions;
    if (part.where)
        conditions.append(value(*part.where));
    if (!more.isEmpty())
        conditions.append(more);
    if (!conditions.isEmpty())
        text += u" WHERE "_s + conditions.join(u" AND "_s);
    return text;
}

QString Emitter::from(const bound::From& from)
{
    QString text = term(from.first);
    for (const bound::JoinStep& step : from.steps) {
        if (step.kind == ast::JoinKind::Left)
            text += u" LEFT JOIN "_s;
        else
            text += step.condition ? u" INNER JOIN "_s : u" CROSS JOIN "_s;
        text += term(step.right);
        if (step.condition)
            text += u" ON "_s + value(*step.condition);
    }
    return text;
}

QString Emitter::term(const bound::FromTerm& term)
{
    if (const auto* inner = std::get_if<std::unique_ptr<bound::From>>(&term))
        return u'(' + from(**inner) + u')';
    const bound::Source& source = (*m_sources)[static_cast<size_t>(std::get<qsizetype>(term))];
    return m_dialect.source(*source.table,
                            source.name == source.table->name() ? QString() : source.name);
}

QString Emitter::ordered(const QString& text, bool isDay)
{
    return isDay ? m_dialect.fold(text) : m_dialect.key(text);
}

// The text, other than of days, that the order begins with though the condition fixes it.
const bound::Column* Emitter::fixedColumn(const bound::Select& select)
{
    if (select.order.empty() || !isFixed(select.order.front(), select))
        return nullptr;
    const bound::Column* column = columnOf(select.order.front(), select.parts.front());
    const bound::Source& source = select.parts.front().sources[static_cast<size_t>(column->source)];
    return isText(source.table->columns()[column->index].type) && !column->isDay ? column : nullptr;
}

QString Emitter::order(const bound::Select& select, bool numbered, bool bySorting)
{
    const bound::SelectPart& part = select.parts.front();
    if (part.aggregated) // one row
        return QString();
    QStringList terms;
    for (const bound::OrderTerm& term : select.order) {
        if (isFixed(term, select))
            continue;
        QString text;
        if (term.output && numbered) {
            const QString name = m_dialect.name(numberedColumn(*term.output));
            text = isText(part.outputs[*term.output].column.type)
                ? ordered(name, isDay(select, *term.output))
                : name;
        } else {
            const bound::Expression& expression =
                term.output ? *part.outputs[*term.output].expression : *term.expression;
            text = value(expression);
            if (expression.type == bound::Type::Text)
                text = ordered(text, bound::isDay(expression));
        }
        if (bySorting && terms.isEmpty())
            text = m_dialect.unindexed(text);
        terms.append(m_dialect.ordered(text, term.descending));
    }
    return terms.isEmpty() ? QString() : u" ORDER BY "_s + terms.join(u", "_s);
}

} // namespace storage::sql
