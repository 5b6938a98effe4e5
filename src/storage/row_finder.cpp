#include "storage/row_finder.h"

namespace storage {

using engine::Cursor;

namespace {

// So many rows are sorted at once rather than looked for in the list's order.
constexpr qint64 Few = 2000;
// Rows that may be looked at for a page while the list is read in its order.
constexpr qint64 LookedAt = 6000;
// From here on a page costs so much that all rows are found when the second one is turned to.
constexpr qint64 Far = 4000;
constexpr qint64 Unlimited = 0;

} // namespace

RowFinder::RowFinder(engine::Session& session, const sql::Finding& finding)
    : m_session(session), m_finding(finding), m_rows(finding.sources.size())
{
}

RowFinder::Outcome RowFinder::walk(const sql::Emitted& statement, qsizetype width, qint64 workLimit,
                                   const Taker& take)
{
    const auto cursor = m_session.prepare(statement, &m_error);
    if (!cursor)
        return Outcome::Failed;
    if (workLimit != Unlimited)
        cursor->limitWork(workLimit);
    std::vector<qint64> row(static_cast<std::size_t>(width));
    Cursor::Step step = cursor->step();
    for (; step == Cursor::Step::Row; step = cursor->step()) {
        for (int source = 0; source < width; ++source)
            row[static_cast<std::size_t>(source)] = cursor->integer(source);
        if (!take(row))
            return Outcome::Done;
    }
    if (step == Cursor::Step::Failed)
        m_error = cursor->error();
    return step == Cursor::Step::Done  ? Outcome::Done
        : step == Cursor::Step::Failed ? Outcome::Failed
                                       : Outcome::Stopped;
}

bool RowFinder::find(qint64 position, qint64 count)
{
    const bool isThere = m_rows.holds(position) && m_rows.end() >= position + count;
    if (m_complete || isThere || (m_total >= 0 && position >= m_total))
        return true;
    if (!m_triedFew) {
        m_triedFew = true;
        if (knowsFew())
            return findAll();
    }
    const bool far = position >= Far;
    if (!wayInOrder() || (far && std::exchange(m_turnedFar, true)))
        return findAll();
    const Outcome outcome = findOnTheWay(position, count);
    return outcome == Outcome::Stopped ? findAll() : outcome == Outcome::Done;
}

const sql::Emitted* RowFinder::wayInOrder()
{
    if (std::exchange(m_triedWays, true))
        return m_inOrder;
    for (const sql::Emitted* way : {&m_finding.inOrder, &m_finding.onTheWay}) {
        const bool walks = !m_finding.ordered || m_session.wayOf(*way) != engine::Way::Sorts;
        if (!m_inOrder && !way->text.isEmpty() && walks)
            m_inOrder = way;
    }
    return m_inOrder;
}

// Whether the condition's own index gives few rows: no more than `Few` of them are looked at.
bool RowFinder::knowsFew()
{
    if (!m_finding.filter || !m_finding.filter->indexable)
        return false;
    sql::Emitted rows = m_finding.filter->rows;
    rows.text += u' ' + m_session.dialect().window(Few + 1, 0);
    qint64 found = 0;
    const Outcome outcome = walk(rows, 1, LookedAt, [&found](std::span<const qint64>) {
        ++found;
        return true;
    });
    return outcome == Outcome::Done && found <= Few;
}

// Reads the list in its order, where the rows before the stretch are passed over.
RowFinder::Outcome RowFinder::findOnTheWay(qint64 position, qint64 count)
{
    sql::Emitted rows = *m_inOrder;
    rows.text += u' ' + m_session.dialect().window(count, position);
    const qint64 limit = m_finding.filtered ? LookedAt + 2 * (position + count) : Unlimited;
    m_rows.start(position);
    const Outcome outcome = walk(rows, m_rows.width(), limit, [this](std::span<const qint64> row) {
        m_rows.add(row);
        return true;
    });
    if (outcome != Outcome::Done)
        m_rows.start(position);
    else if (m_rows.count() < count && (m_rows.count() > 0 || position == 0))
        m_total = m_rows.end();
    m_complete = m_total >= 0 && position == 0;
    return outcome;
}

bool RowFinder::findAll()
{
    if (m_complete)
        return true;
    m_rows.start(0);
    const bool hasOwnOrder = !m_finding.inOrder.text.isEmpty();
    const sql::Emitted& own = hasOwnOrder ? m_finding.inOrder : m_finding.asTheyLie;
    // One statement does it where its rows come in order, or where there is nothing else to walk.
    if (!m_finding.filtered || !m_finding.ordered
        || (hasOwnOrder
            && (m_session.wayOf(own) == engine::Way::WalksSome
                || m_session.wayOf(m_finding.unfiltered) == engine::Way::Sorts))) {
        const Taker keep = [this](std::span<const qint64> row) {
            m_rows.add(row);
            return true;
        };
        return walk(own, m_rows.width(), Unlimited, keep) == Outcome::Done && finish();
    }
    // A condition on one table alone needs no look at the others.
    const bool byOneTable = m_finding.filter && m_finding.filter->whole;
    const qsizetype width = byOneTable ? 1 : m_rows.width();
    AddressSet found(width);
    const Outcome outcome = walk(byOneTable ? m_finding.filter->rows : m_finding.asTheyLie, width,
                                 Unlimited, [&found](std::span<const qint64> row) {
                                     found.add(row);
                                     return true;
                                 });
    if (outcome != Outcome::Done)
        return false;
    const bool done = found.count() <= Few
        ? sortFew(found, byOneTable ? 0 : m_finding.listedSource)
        : walkInOrder(std::move(found),
                      byOneTable ? std::optional(m_finding.filter->source) : std::nullopt);
    return done && finish();
}

bool RowFinder::finish()
{
    m_complete = true;
    m_total = m_rows.count();
    return true;
}

// `source`: the column of the found rows that holds the addresses of the listed table.
bool RowFinder::sortFew(const AddressSet& found, qsizetype source)
{
    sql::Emitted rows = m_finding.listed;
    rows.parameters.last() = Value(found.list(source));
    return walk(rows, m_rows.width(), Unlimited,
                [this](std::span<const qint64> row) {
                    m_rows.add(row);
                    return true;
                })
        == Outcome::Done;
}

// `source`: the only table whose addresses were found; nothing for all.
bool RowFinder::walkInOrder(AddressSet found, std::optional<qsizetype> source)
{
    found.sort();
    return walk(m_finding.unfiltered, m_rows.width(), Unlimited,
                [&](std::span<const qint64> row) {
                    const auto asked =
                        source ? row.subspan(static_cast<std::size_t>(*source), 1) : row;
                    if (found.contains(asked))
                        m_rows.add(row);
                    return true;
                })
        == Outcome::Done;
}

std::optional<qint64> RowFinder::findRow(qsizetype source, qint64 address)
{
    const qint64 known = m_rows.find(source, address);
    if (known >= 0 || m_complete)
        return known;
    if (!find(0, 1))
        return std::nullopt;
    if (!m_complete && wayInOrder()) {
        m_rows.start(0);
        bool found = false;
        const Outcome outcome =
            walk(*m_inOrder, m_rows.width(), m_finding.filtered ? LookedAt : Unlimited,
                 [&](std::span<const qint64> row) {
                     m_rows.add(row);
                     found = row[static_cast<std::size_t>(source)] == address;
                     return !found;
                 });
        if (outcome == Outcome::Failed)
            return std::nullopt;
        if (found)
            return m_rows.end() - 1;
        if (outcome == Outcome::Done)
            finish();
    }
    if (!findAll())
        return std::nullopt;
    return m_rows.find(source, address);
}

void RowFinder::remove(qint64 position)
{
    if (m_rows.holds(position))
        m_rows.remove(position);
    if (m_total >= 0)
        --m_total;
}

} // namespace storage
