#include "storage/sql/emit.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

// The names of a result's columns inside a statement of ours.
QString numberedColumn(size_t index)
{
    return u"c"_s + QString::number(index + 1);
}

// Repeats are dropped before the rows are ordered, and the order is that of keys made from what is
// left; engines want that said in two steps.
bool isWrapped(const bound::Select& select)
{
    return !select.order.empty() && !select.parts.front().aggregated
        && (select.parts.size() > 1 || select.parts.front().distinct);
}

// Whether a text is looked for inside others, which no index finds.
bool isSearch(const bound::Expression& condition)
{
    if (const auto* like = std::get_if<bound::Like>(&condition.node))
        return !like->prefix;
    const auto* logic = std::get_if<bound::Logic>(&condition.node);
    return logic && std::ranges::any_of(logic->operands, [](const bound::ExpressionPtr& operand) {
               return isSearch(*operand);
           });
}

// Whether the rows are those of one record, found by its number and mark.
bool isOfOneRecord(const bound::Expression& condition)
{
    const auto* logic = std::get_if<bound::Logic>(&condition.node);
    return logic && logic->kind == ast::LogicKind::And
        && std::ranges::all_of(logic->operands, [](const bound::ExpressionPtr& operand) {
               const auto* comparison = std::get_if<bound::Comparison>(&operand->node);
               return comparison && comparison->kind == ast::ComparisonKind::Equal
                   && comparison->form == bound::Form::Plain;
           });
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

Emitted Emitter::finished(QString text)
{
    return Emitted{std::move(text), std::move(m_parameters)};
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
    if (first.top)
        rows += u' ' + m_dialect.window(*first.top, 0);
    return finished(u"SELECT count(*) FROM ("_s + rows + u") AS _rows"_s);
}

QString Emitter::select(const bound::Select& select, bool withAddress)
{
    const bool wrapped = isWrapped(select);
    QString text = parts(select, wrapped, withAddress);
    if (wrapped)
        text = u"SELECT * FROM ("_s + text + u") AS _rows"_s;
    m_sources = &select.parts.front().sources;
    text += order(select, wrapped);
    // A limit of its own must not meet the one that a page puts behind the statement.
    if (const auto& top = select.parts.front().top)
        text = u"SELECT * FROM ("_s + text + u' ' + m_dialect.window(*top, 0) + u") AS _top"_s;
    return text;
}

// `numbered`: the columns get names by which the order can be given from outside.
QString Emitter::parts(const bound::Select& select, bool numbered, bool withAddress)
{
    QString text;
    for (const bound::SelectPart& each : select.parts) {
        if (!text.isEmpty())
            text += each.unionAll ? u" UNION ALL "_s : u" UNION "_s;
        text += part(each, numbered, withAddress);
    }
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
        if (numbered)
            output += u" AS "_s + m_dialect.name(numberedColumn(i));
        outputs.append(std::move(output));
    }
    return outputs;
}

std::optional<PageStatement> Emitter::page(const bound::Select& select, bool withAddress)
{
    const bound::SelectPart& part = select.parts.front();
    if (select.order.empty() || select.parts.size() > 1 || part.distinct || part.aggregated
        || part.top || !part.from)
        return std::nullopt;
    if (part.where && isOfOneRecord(*part.where))
        return std::nullopt; // they are few: nothing is gained by a second step

    QStringList columns = outputs(part, false);
    QStringList found;
    QString joined;
    for (size_t i = 0; i < part.sources.size(); ++i) {
        const bound::Source& source = part.sources[i];
        const QString address = m_dialect.rowAddress(*source.table, m_dialect.name(source.name));
        const QString name = m_dialect.name(numberedColumn(i));
        found.append(address + u" AS "_s + name);
        // Left, so that the page leads: its rows are few, and a row without a partner stays one.
        joined += u" LEFT JOIN "_s + term(static_cast<qsizetype>(i)) + u" ON "_s + address
            + u" = _page."_s + name;
        if (withAddress)
            columns.append(address);
    }

    PageStatement page;
    const QString rows = u"SELECT "_s + columns.join(u", "_s) + u" FROM (SELECT "_s
        + found.join(u", "_s) + fromWhere(part);
    page.head = rows + order(select, false);
    const qsizetype parameters = m_parameters.size();
    if (part.where && isSearch(*part.where))
        page.searchHead = rows + order(select, false, true);
    if (m_parameters.size() > parameters) { // one statement would have them, the other not
        page.searchHead.clear();
        m_parameters.remove(parameters, m_parameters.size() - parameters);
    }
    page.tail = u") AS _page"_s + joined + order(select, false);
    page.firstInOneStep = part.sources.size() == 1 && !part.where
        && std::none_of(select.order.begin(), select.order.end(),
                        [](const bound::OrderTerm& term) { return term.descending; });
    page.parameters = std::move(m_parameters);
    return page;
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
    const QString table = m_dialect.name(source.table->name());
    if (source.name == source.table->name())
        return table;
    return table + u" AS "_s + m_dialect.name(source.name);
}

QString Emitter::ordered(const QString& text, bool isDay)
{
    return isDay ? m_dialect.fold(text) : m_dialect.key(text);
}

QString Emitter::order(const bound::Select& select, bool numbered, bool bySorting)
{
    const bound::SelectPart& part = select.parts.front();
    if (part.aggregated) // one row
        return QString();
    QStringList terms;
    for (const bound::OrderTerm& term : select.order) {
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
        terms.append(term.descending ? text + u" DESC"_s : text);
    }
    return terms.isEmpty() ? QString() : u" ORDER BY "_s + terms.join(u", "_s);
}

} // namespace storage::sql
