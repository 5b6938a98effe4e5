#include "storage/sql/condition_parts.h"
#include "storage/sql/emit.h"
#include "storage/sql/finding.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

using bound::Expression;

// Of a union without repeats, or of DISTINCT: the source of a part whose rows are its rows, when
// they are the rows of the same table in all parts.
std::optional<qsizetype> ownerOf(const bound::SelectPart& part)
{
    const auto sourceOf = [](const bound::Output& output) -> std::optional<qsizetype> {
        const auto* column = std::get_if<bound::Column>(&output.expression->node);
        return column ? std::optional(column->source) : std::nullopt;
    };
    const auto source = part.outputs.empty() ? std::nullopt : sourceOf(part.outputs.front());
    if (!source || part.top || part.aggregated)
        return std::nullopt;
    const schema::Table& table = *part.sources[static_cast<std::size_t>(*source)].table;
    const int key = table.indexOf(table.keyColumn());
    bool hasKey = false;
    for (const bound::Output& output : part.outputs) {
        if (sourceOf(output) != source)
            return std::nullopt;
        hasKey = hasKey || std::get<bound::Column>(output.expression->node).index == key;
    }
    return key >= 0 && hasKey ? source : std::nullopt;
}

bool givesSameColumns(const bound::SelectPart& one, const bound::SelectPart& other)
{
    const auto tableOf = [](const bound::SelectPart& part) {
        const auto& column = std::get<bound::Column>(part.outputs.front().expression->node);
        return part.sources[static_cast<std::size_t>(column.source)].table;
    };
    return tableOf(one) == tableOf(other)
        && std::ranges::equal(one.outputs, other.outputs,
                              [](const bound::Output& a, const bound::Output& b) {
                                  return std::get<bound::Column>(a.expression->node).index
                                      == std::get<bound::Column>(b.expression->node).index;
                              });
}

// The rows of a union's (a DISTINCT's) one table as a SELECT of that table alone.
std::optional<bound::Select> ownRows(const bound::Select& select)
{
    const bound::SelectPart& first = select.parts.front();
    const bool repeatsDropped = select.parts.size() == 1
        ? first.distinct
        : std::none_of(select.parts.begin() + 1, select.parts.end(),
                       [](const bound::SelectPart& part) { return part.unionAll; });
    for (const bound::SelectPart& part : select.parts) {
        if (!repeatsDropped || !ownerOf(part) || !givesSameColumns(first, part))
            return std::nullopt;
    }
    const auto source = static_cast<std::size_t>(*ownerOf(first));
    const schema::Table* const table = first.sources[source].table;
    bound::SelectPart part;
    part.sources.push_back({table, table->name()});
    part.from = bound::From{qsizetype{0}, {}};
    for (const bound::Output& output : first.outputs) {
        const Expression& column = *output.expression;
        const bound::Column place{0, std::get<bound::Column>(column.node).index};
        part.outputs.push_back(
            {std::make_unique<Expression>(Expression{column.type, column.position, place}),
             output.column});
    }
    bound::Select rows;
    for (const bound::OrderTerm& term : select.order) {
        if (!term.output)
            return std::nullopt;
        rows.order.push_back({term.output, nullptr, term.descending});
    }
    rows.parts.push_back(std::move(part));
    return rows;
}

// The source of the first column that the rows are ordered by.
qsizetype orderedSource(const bound::Select& select)
{
    const bound::SelectPart& part = select.parts.front();
    for (const bound::OrderTerm& term : select.order) {
        const Expression& ordered =
            term.output ? *part.outputs[*term.output].expression : *term.expression;
        if (const auto* column = std::get_if<bound::Column>(&ordered.node))
            return column->source;
    }
    return 0;
}

} // namespace

QString Emitter::addresses(const bound::SelectPart& part)
{
    m_sources = &part.sources;
    QStringList found;
    for (const bound::Source& source : part.sources)
        found += m_dialect.rowAddress(*source.table, m_dialect.name(source.name));
    return u"SELECT "_s + found.join(u", "_s);
}

// The addresses of all rows that the condition lets through, all parts of a union together.
QString Emitter::ownAddresses(const bound::Select& select)
{
    QString text;
    for (const bound::SelectPart& part : select.parts) {
        m_sources = &part.sources;
        const bound::Source& owner = part.sources[static_cast<std::size_t>(*ownerOf(part))];
        if (!text.isEmpty())
            text += u" UNION "_s;
        text += (select.parts.size() == 1 ? u"SELECT DISTINCT "_s : u"SELECT "_s)
            + m_dialect.rowAddress(*owner.table, m_dialect.name(owner.name)) + fromWhere(part);
    }
    return text;
}

QString Emitter::unindexedWhere(const bound::SelectPart& part)
{
    if (!part.where)
        return {};
    m_unindexed = true;
    const QString condition = value(*part.where);
    m_unindexed = false;
    return u" WHERE "_s + condition;
}

void Emitter::emitReading(const bound::SelectPart& part, Finding* result)
{
    QStringList columns = outputs(part, false);
    QString joined;
    for (std::size_t i = 0; i < part.sources.size(); ++i) {
        const bound::Source& source = part.sources[i];
        const QString address = m_dialect.rowAddress(*source.table, m_dialect.name(source.name));
        columns += address;
        // Left, so that the list leads, and a row that is gone leaves its place empty.
        joined += u" LEFT JOIN "_s + term(static_cast<qsizetype>(i)) + u" ON "_s + address
            + u" = _at.column"_s + QString::number(i + 2);
    }
    result->readHead = u"SELECT _at.column1, "_s + columns.join(u", "_s) + u" FROM (VALUES "_s;
    result->readTail = u") AS _at"_s + joined + m_dialect.inListOrder();
    result->readParameters = takeParameters();
}

void Emitter::emitFilter(const bound::SelectPart& part, Finding* result)
{
    const std::optional<FilterParts> parts = filterParts(part);
    if (!parts)
        return;
    const bound::Source& source = part.sources[static_cast<std::size_t>(parts->source)];
    QStringList conditions;
    m_sources = &part.sources;
    for (const Expression* each : parts->parts)
        conditions += value(*each);
    const QString text = u"SELECT "_s
        + m_dialect.rowAddress(*source.table, m_dialect.name(source.name)) + u" FROM "_s
        + term(parts->source) + u" WHERE "_s + conditions.join(u" AND "_s);
    result->filter = Finding::Filter{finished(text), parts->source, parts->whole, parts->indexable};
    result->listedSource = parts->source;
}

void Emitter::emitWholeTable(const bound::Select& select, Finding* result)
{
    const bound::SelectPart& part = select.parts.front();
    result->wholeTable = part.sources.size() == 1 && !result->filtered && select.order.empty();
    if (!result->wholeTable)
        return;
    const schema::Table& table = *part.sources.front().table;
    const QString address = m_dialect.rowAddress(table, m_dialect.name(part.sources.front().name));
    QString text = this->part(part, false, true);
    text += u" WHERE "_s + address + u" > "_s + parameter(Value(0));
    text += u" AND "_s + address + u" <= "_s + parameter(Value(0)) + u" ORDER BY "_s + address;
    result->stretch = finished(text);
}

// Not where a term needs a value of its own: it would have a number in each text.
void Emitter::emitPlace(const bound::Select& select, Finding* result)
{
    const bound::SelectPart& part = select.parts.front();
    if (part.sources.size() > 1 || result->filtered || select.order.empty())
        return;
    Finding::Place place;
    for (const bound::OrderTerm& term : select.order) {
        const Expression& ordered =
            term.output ? *part.outputs[*term.output].expression : *term.expression;
        if (!std::holds_alternative<bound::Column>(ordered.node))
            return;
        const QString text = value(ordered);
        place.terms.append(
            {ordered.type == bound::Type::Text ? this->ordered(text, bound::isDay(ordered)) : text,
             term.descending});
    }
    const bound::Source& source = part.sources.front();
    place.address = m_dialect.rowAddress(*source.table, m_dialect.name(source.name));
    place.from = u" FROM "_s + from(*part.from);
    result->place = std::move(place);
}

// The rows in order and without: each text has its parameters for itself.
void Emitter::emitWays(const bound::Select& select, Finding* result)
{
    const bound::SelectPart& part = select.parts.front();
    const QString found = addresses(part);
    result->inOrder = finished(found + fromWhere(part) + order(select, false));
    m_byKey = fixedColumn(select);
    if (m_byKey)
        result->inOrderByKey = finished(found + fromWhere(part) + order(select, false));
    m_byKey = nullptr;
    result->onTheWay = finished(found + u" FROM "_s + from(*part.from) + unindexedWhere(part)
                                + order(select, false));
    result->asTheyLie = finished(found + fromWhere(part));
    result->sorted = finished(found + fromWhere(part) + order(select, false, true));
    QStringList columns = outputs(part, false);
    if (part.sources.size() == 1)
        columns += m_dialect.rowAddress(*part.sources.front().table, QString());
    result->rowsOnTheWay =
        finished(u"SELECT "_s + columns.join(u", "_s) + u" FROM "_s + from(*part.from)
                 + unindexedWhere(part) + order(select, false));
    result->listedSource = orderedSource(select);
    emitFilter(part, result);
    emitPlace(select, result);
}

void Emitter::emitListed(const bound::Select& select, Finding* result)
{
    const bound::SelectPart& part = select.parts.front();
    const QString found = addresses(part);
    const QString rows = found + u" FROM "_s + from(*part.from) + unindexedWhere(part)
        + (part.where ? u" AND "_s : u" WHERE "_s);
    const QString sorting = order(select, false, true);
    const bound::Source& source = part.sources[static_cast<std::size_t>(result->listedSource)];
    const QString address = m_dialect.rowAddress(*source.table, m_dialect.name(source.name));
    // Bound last, when all other values have their numbers.
    const QString list = parameter(Value());
    result->listed = finished(rows + m_dialect.isAmong(address, list) + sorting);
    result->lastAddress =
        finished(u"SELECT max("_s + address + u") FROM "_s + term(result->listedSource));
}

Finding Emitter::finding(const bound::Select& select, const bound::Select* ownedBy)
{
    const bound::SelectPart& part = select.parts.front();
    Finding result;
    for (const bound::Source& source : part.sources)
        result.sources.append({source.name, source.table->keyColumn()});
    result.ordered = !select.order.empty();
    result.filtered = ownedBy || part.where;
    result.searches = ownedBy || (part.where && isSearch(*part.where));
    if (ownedBy)
        result.asTheyLie = finished(ownAddresses(*ownedBy));
    else
        emitWays(select, &result);
    emitListed(select, &result);
    const QString all = addresses(part);
    result.unfiltered = finished(all + u" FROM "_s + from(*part.from) + order(select, false));
    emitReading(part, &result);
    emitWholeTable(select, &result);
    return result;
}

namespace {

// Nothing when the rows have no addresses.
std::optional<Finding> made(const Compiled& rows, const Dialect& dialect)
{
    if (!rows.select)
        return std::nullopt;
    const bound::Select& select = *rows.select;
    const bound::SelectPart& part = select.parts.front();
    if (select.parts.size() == 1 && !part.distinct) {
        if (part.aggregated || part.top || !part.from)
            return std::nullopt;
        return Emitter(dialect, rows.arguments).finding(select, nullptr);
    }
    const std::optional<bound::Select> own = ownRows(select);
    return own ? std::optional(Emitter(dialect, rows.arguments).finding(*own, &select))
               : std::nullopt;
}

} // namespace

std::shared_ptr<const Finding> finding(const Compiled& rows, const Dialect& dialect)
{
    const auto shared = [](std::optional<Finding> finding) -> std::shared_ptr<const Finding> {
        return finding ? std::make_shared<const Finding>(std::move(*finding)) : nullptr;
    };
    if (!rows.known || !rows.arguments.isEmpty()) // the values stand in the texts
        return shared(made(rows, dialect));
    if (!std::exchange(rows.known->isMade, true))
        rows.known->finding = shared(made(rows, dialect));
    return rows.known->finding;
}

Emitted readAt(const Finding& finding, const qint64* addresses, qsizetype count,
               const Dialect& dialect)
{
    Emitted read{finding.readHead, finding.readParameters};
    const qsizetype width = finding.sources.size();
    read.parameters.reserve(read.parameters.size() + count * width);
    for (qsizetype row = 0; row < count; ++row) {
        read.text += (row > 0 ? u", ("_s : u"("_s) + QString::number(row);
        for (qsizetype source = 0; source < width; ++source) {
            const qint64 address = addresses[row * width + source];
            Value bound;
            if (address != NoAddress)
                bound = Value(address);
            read.parameters.append(std::move(bound));
            read.text += u", "_s + dialect.parameter(read.parameters.size());
        }
        read.text += u')';
    }
    read.text += finding.readTail;
    return read;
}

} // namespace storage::sql
