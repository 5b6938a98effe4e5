#include "storage/row_finder.h"

#include "storage/rows_around.h"

#include <limits>

namespace storage {

using namespace Qt::StringLiterals;
using engine::Cursor;
using engine::Way;

namespace {

// So many rows are sorted at once rather than looked for in the list's order.
constexpr qint64 Few = 2000;
// Rows that may be looked at for a page while the list is read in its order.
constexpr qint64 LookedAt = 6000;
// From here on a page costs so much that all rows are found when the second one is turned to.
constexpr qint64 Far = 4000;
constexpr qint64 Unlimited = 0;
constexpr qint64 NoRowBound = std::numeric_limits<qint64>::max();
// Rows behind a far page that are found with it, for whoever turns on from there.
constexpr qint64 Ahead = 4000;
// Of a table's rows, the part up to which sorting the found ones is quicker than walking all.
// (To sort a row, it is read and its key made; walking reads an index alone.)
constexpr qint64 SortedPart = 12;
constexpr qint64 SortedPartOfGroups = 4;
// Rows that a search looks at to tell about how many it will find. (Where it has no order to
// follow, they are about twice as many as its limit of work says.)
constexpr qint64 Sample = 4000;
// Of a table's rows, the part up to which they are counted to tell how far apart they lie.
constexpr qint64 CountedPart = 4;
// The same where an index orders groups of rows, and the part that may then be looked at.
constexpr qint64 GroupsPart = 64;
constexpr qint64 WalkedPart = 8;

} // namespace

RowFinder::RowFinder(engine::Session& session, const sql::Finding& finding)
    : m_session(session), m_finding(finding), m_rows(finding.sources.size())
{
}

// A template, as some of these walks pass a hundred thousand rows.
template <typename Taker>
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
    const bool isThere =
        m_rows.holds(position) && (m_rows.end() >= position + count || m_rows.end() == m_total);
    if (m_complete || isThere || (m_total >= 0 && position >= m_total))
        return true;
    const bool walks = wayInOrder() != nullptr;
    const bool filters = filtersOnTheWay();
    const bool far = position >= Far;
    // The second page that is far from the beginning finds them all.
    const bool farAgain = far && std::exchange(m_turnedFar, true);
    if (walks && far && filters && !farAgain && !m_finding.searches)
        return findUpTo(position + count + Ahead);
    if (!walks || (far && (filters || farAgain)))
        return findAll();
    if (filters && (isFew() || isFarOnTheWay(position, count)))
        return findAll();
    const Outcome outcome = findOnTheWay(position, count);
    return outcome == Outcome::Stopped ? findAll() : outcome == Outcome::Done;
}

RowFinder::Direct RowFinder::direct(qint64 count)
{
    if (m_complete || !wayInOrder() || m_way == Way::WalksGroups)
        return {};
    if (!m_finding.filtered)
        return {Direct::AsWritten, Unlimited};
    // What an index leads to is found sooner by that index alone.
    if (m_way == Way::WalksSome || m_inOrder != &m_finding.onTheWay || isFew())
        return {};
    return {Direct::OnTheWay, LookedAt + 2 * count};
}

// Whether the rows that come in order are looked at one by one for the condition.
bool RowFinder::filtersOnTheWay() const
{
    return m_finding.filtered && m_way != Way::WalksSome;
}

const sql::Emitted* RowFinder::wayInOrder()
{
    if (std::exchange(m_triedWays, true))
        return m_inOrder;
    for (const sql::Emitted* statement : {&m_finding.inOrder, &m_finding.inOrderByKey}) {
        if (m_finding.ordered && !m_inOrder && !statement->text.isEmpty()
            && m_session.wayOf(*statement) == Way::WalksSome) {
            m_inOrder = statement;
            m_way = Way::WalksSome;
        }
    }
    for (const sql::Emitted* statement : {&m_finding.inOrder, &m_finding.onTheWay}) {
        if (m_inOrder || statement->text.isEmpty())
            continue;
        m_way = m_finding.ordered ? m_session.wayOf(*statement) : Way::WalksAll;
        if (m_way != Way::Sorts)
            m_inOrder = statement;
    }
    return m_inOrder;
}

// Whether an index leads to the rows of the condition.
bool RowFinder::isLedTo()
{
    return m_finding.filter && m_finding.filter->indexable
        && m_session.wayOf(m_finding.filter->rows) == Way::WalksSome;
}

// Whether the condition's own index gives more than so many rows, or cannot tell soon.
bool RowFinder::goesBeyond(qint64 rows)
{
    sql::Emitted next = m_finding.filter->rows;
    next.text += u' ' + m_session.dialect().window(1, rows);
    bool found = false;
    const Outcome outcome = walk(next, 1, 2 * rows, [&found](std::span<const qint64>) {
        found = true;
        return false;
    });
    return found || outcome != Outcome::Done;
}

// How many rows the condition's own index gives, or one more than that many. Nothing when no index
// finds them.
std::optional<qint64> RowFinder::countFiltered(qint64 atMost)
{
    if (!isLedTo())
        return std::nullopt;
    sql::Emitted rows = m_finding.filter->rows;
    rows.text = u"SELECT count(*) FROM ("_s + rows.text + u' '
        + m_session.dialect().window(atMost + 1, 0) + u") AS _few"_s;
    std::optional<qint64> found;
    walk(rows, 1, 2 * atMost, [&found](std::span<const qint64> row) {
        found = row.front();
        return true;
    });
    return found;
}

// Whether there are so few rows that sorting them is the shortest way.
bool RowFinder::isFew()
{
    if (!m_isFew) {
        // Where an index orders only groups, a whole group is looked at before its first row comes.
        const qint64 few =
            m_way == Way::WalksGroups ? std::max(Few, tableRows() / GroupsPart) : Few;
        m_isFew = isLedTo() && !goesBeyond(few);
    }
    return *m_isFew;
}

// Whether the rows of a page behind the first lie so far apart that the way to them is longer than
// sorting all.
bool RowFinder::isFarOnTheWay(qint64 position, qint64 count)
{
    if (position == 0)
        return false;
    if (m_filtered < 0)
        m_filtered = countFiltered(tableRows() / CountedPart).value_or(0);
    return m_filtered > 0 && (position + count) * tableRows() / m_filtered > LookedAt;
}

// About how many rows the table has whose rows are chosen.
qint64 RowFinder::tableRows()
{
    if (m_tableRows < 0) {
        m_tableRows = 0;
        walk(m_finding.lastAddress, 1, Unlimited, [this](std::span<const qint64> row) {
            m_tableRows = std::max<qint64>(row.front(), 0);
            return true;
        });
    }
    return m_tableRows;
}

// Reads the list in its order, where the rows before the stretch are passed over.
RowFinder::Outcome RowFinder::findOnTheWay(qint64 position, qint64 count)
{
    sql::Emitted rows = *m_inOrder;
    rows.text += u' ' + m_session.dialect().window(count, position);
    const qint64 looked =
        m_way == Way::WalksGroups ? std::max(LookedAt, tableRows() / WalkedPart) : LookedAt;
    const qint64 limit = filtersOnTheWay() ? looked + 2 * (position + count) : Unlimited;
    m_rows.start(position);
    const Outcome outcome = walk(rows, m_rows.width(), limit, [this](std::span<const qint64> row) {
        m_rows.add(row);
        return true;
    });
    if (outcome != Outcome::Done)
        m_rows.start(position);
    else if (m_rows.count() < count && (m_rows.count() > 0 || position == 0))
        m_total = m_rows.end();
    m_complete = position == 0 && m_rows.end() == m_total;
    return outcome;
}

bool RowFinder::findAll()
{
    return findUpTo(NoRowBound);
}

// As many of the rows, from the first one on; all of them where fewer are not found sooner.
bool RowFinder::findUpTo(qint64 end)
{
    if (m_complete)
        return true;
    m_rows.start(0);
    const bool hasOwnOrder = !m_finding.inOrder.text.isEmpty();
    const bool comesInOrder = wayInOrder() && m_way == Way::WalksSome;
    const sql::Emitted& own = comesInOrder ? *m_inOrder
        : hasOwnOrder                      ? m_finding.inOrder
                                           : m_finding.asTheyLie;
    // One statement does it where its rows come in order, where there is nothing else to walk, and
    // where there are few to be sorted.
    if (!m_finding.filtered || !m_finding.ordered
        || (hasOwnOrder && (comesInOrder || m_session.wayOf(m_finding.unfiltered) == Way::Sorts)))
        return keepAll(own);
    if (hasOwnOrder && (isFew() || (m_finding.searches && findsFew())))
        return keepAll(m_finding.sorted);
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
    if (found.count() <= mostSorted())
        return sortFound(found, byOneTable ? 0 : m_finding.listedSource);
    return walkInOrder(std::move(found),
                       byOneTable ? std::optional(m_finding.filter->source) : std::nullopt, end);
}

// All rows as a statement gives them.
bool RowFinder::keepAll(const sql::Emitted& statement)
{
    const auto keep = [this](std::span<const qint64> row) {
        m_rows.add(row);
        return true;
    };
    return walk(statement, m_rows.width(), Unlimited, keep) == Outcome::Done && finish();
}

// How many found rows are sorted rather than put in their places by a walk over all.
qint64 RowFinder::mostSorted()
{
    const qint64 part =
        m_session.wayOf(m_finding.unfiltered) == Way::WalksGroups ? SortedPartOfGroups : SortedPart;
    return std::max(Few, tableRows() / part);
}

// Whether a search will find no more rows than are sorted, as far as the first rows tell.
bool RowFinder::findsFew()
{
    qint64 found = 0;
    const Outcome outcome =
        walk(m_finding.asTheyLie, 1, Sample / 2, [&found](std::span<const qint64>) {
            ++found;
            return true;
        });
    return outcome == Outcome::Done || found * tableRows() / Sample <= mostSorted();
}

bool RowFinder::finish()
{
    m_complete = true;
    m_total = m_rows.count();
    return true;
}

// `source`: the column of the found rows that holds the addresses of the listed table.
bool RowFinder::sortFound(const AddressSet& found, qsizetype source)
{
    sql::Emitted rows = m_finding.listed;
    rows.parameters.last() = Value(found.list(source));
    return keepAll(rows);
}

// `source`: the only table whose addresses were found; nothing for all. `end`: how many rows will
// do.
bool RowFinder::walkInOrder(AddressSet found, std::optional<qsizetype> source, qint64 end)
{
    found.sort();
    const Outcome outcome =
        walk(m_finding.unfiltered, m_rows.width(), Unlimited, [&](std::span<const qint64> row) {
            const auto asked = source ? row.subspan(static_cast<std::size_t>(*source), 1) : row;
            if (found.contains(asked))
                m_rows.add(row);
            return m_rows.count() < end;
        });
    if (outcome != Outcome::Done)
        return false;
    return m_rows.count() >= end || finish();
}

std::optional<qint64> RowFinder::findRow(qsizetype source, qint64 address, qint64 window)
{
    const qint64 known = m_rows.find(source, address);
    if (known >= 0 || m_complete)
        return known;
    if (m_finding.place && wayInOrder() && m_way == Way::WalksAll) {
        if (const auto position = findByCounting(address, window))
            return position;
    }
    if (!find(0, 1))
        return std::nullopt;
    // The rows that an index leads to are all found as soon as the way to one of them.
    if (!m_complete && wayInOrder() && !(filtersOnTheWay() && isLedTo())) {
        m_rows.start(0);
        qint64 position = -1;
        const Outcome outcome =
            walk(*m_inOrder, m_rows.width(), filtersOnTheWay() ? LookedAt : Unlimited,
                 [&](std::span<const qint64> row) {
                     m_rows.add(row);
                     if (position < 0 && row[static_cast<std::size_t>(source)] == address)
                         position = m_rows.end() - 1;
                     return position < 0 || m_rows.end() <= position + window;
                 });
        if (outcome == Outcome::Failed)
            return std::nullopt;
        const bool atEnd =
            outcome == Outcome::Done && (position < 0 || m_rows.end() <= position + window);
        if (atEnd)
            finish();
        if (position >= 0)
            return position;
    }
    if (!findAll())
        return std::nullopt;
    return m_rows.find(source, address);
}

// The rows beside the one that was looked for are kept, for they are asked for next.
std::optional<qint64> RowFinder::findByCounting(qint64 address, qint64 window)
{
    const auto around = rowsAround(m_session, *m_finding.place, address, window);
    if (!around)
        return std::nullopt;
    if (!around->exists)
        return -1;
    m_rows.start(around->first);
    m_rows.add(around->addresses);
    if (around->reachesEnd)
        m_total = m_rows.end();
    m_complete = m_rows.first() == 0 && m_rows.end() == m_total;
    return around->position;
}

void RowFinder::remove(qint64 position)
{
    if (m_rows.holds(position))
        m_rows.remove(position);
    if (m_total >= 0)
        --m_total;
}

} // namespace storage
