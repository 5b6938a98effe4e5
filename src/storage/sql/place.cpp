#include "storage/sql/place.h"

#include "storage/sql/dialect.h"

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

// Rows that are like the row in its first terms and lie on one side of it in the next.
struct Range {
    QString condition;
    std::size_t term = 0;
};

class Ranges {
public:
    Ranges(const Finding::Place& place, const std::vector<bool>& nulls, const Dialect& dialect)
        : m_place(place), m_nulls(nulls), m_row(dialect.parameter(1))
    {
    }

    // The nearest to the row first.
    QList<Range> on(Side side) const
    {
        QList<Range> ranges;
        for (std::size_t term = m_nulls.size(); term-- > 0;) {
            const QString& text = m_place.terms[static_cast<qsizetype>(term)].expression;
            const bool descending = m_place.terms[static_cast<qsizetype>(term)].descending;
            // Null is less than all values.
            const bool less = (side == Side::Before) != descending;
            QStringList conditions;
            if (m_nulls[term])
                conditions = less ? QStringList() : QStringList{text + u" IS NOT NULL"_s};
            else if (less)
                conditions = {text + u" < "_s + ofRow(term), text + u" IS NULL"_s};
            else
                conditions = {text + u" > "_s + ofRow(term)};
            for (const QString& condition : conditions)
                ranges.append({(alike(term) << condition).join(u" AND "_s), term});
        }
        return ranges;
    }

    // What the first terms ask of rows that are like the row in them.
    QStringList alike(std::size_t terms) const
    {
        QStringList conditions;
        for (std::size_t term = 0; term < terms; ++term) {
            const QString& text = m_place.terms[static_cast<qsizetype>(term)].expression;
            conditions += m_nulls[term] ? text + u" IS NULL"_s : text + u" = "_s + ofRow(term);
        }
        return conditions;
    }

private:
    QString ofRow(std::size_t term) const
    {
        return u"(SELECT "_s + m_place.terms[static_cast<qsizetype>(term)].expression + m_place.from
            + u" WHERE "_s + m_place.address + u" = "_s + m_row + u')';
    }

    const Finding::Place& m_place;
    const std::vector<bool>& m_nulls;
    QString m_row;
};

QString counted(const Finding::Place& place, const QString& condition)
{
    return u"(SELECT count(*)"_s + place.from + u" WHERE "_s + condition + u')';
}

} // namespace

Emitted nullTerms(const Finding::Place& place, qint64 address, const Dialect& dialect)
{
    QStringList columns;
    for (const Finding::Place::Term& term : place.terms)
        columns += u"CASE WHEN "_s + term.expression + u" IS NULL THEN 1 ELSE 0 END"_s;
    return {u"SELECT "_s + columns.join(u", "_s) + place.from + u" WHERE "_s + place.address
                + u" = "_s + dialect.parameter(1),
            {Value(address)}};
}

Emitted countBefore(const Finding::Place& place, qint64 address, const std::vector<bool>& nulls,
                    const Dialect& dialect)
{
    const Ranges ranges(place, nulls, dialect);
    QStringList counts{u"0"_s};
    for (const Range& range : ranges.on(Side::Before))
        counts += counted(place, range.condition);
    return {u"SELECT "_s + counts.join(u" + "_s) + u", "_s
                + counted(place, ranges.alike(nulls.size()).join(u" AND "_s)),
            {Value(address)}};
}

QList<Emitted> beside(const Finding::Place& place, qint64 address, const std::vector<bool>& nulls,
                      Side side, const Dialect& dialect)
{
    QList<Emitted> statements;
    for (const Range& range : Ranges(place, nulls, dialect).on(side)) {
        QStringList order;
        for (auto term = static_cast<qsizetype>(range.term); term < place.terms.size(); ++term) {
            const bool descending = place.terms[term].descending != (side == Side::Before);
            order += dialect.ordered(place.terms[term].expression, descending);
        }
        statements.append({u"SELECT "_s + place.address + place.from + u" WHERE "_s
                               + range.condition + u" ORDER BY "_s + order.join(u", "_s),
                           {Value(address)}});
    }
    return statements;
}

} // namespace storage::sql
