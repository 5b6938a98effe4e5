#include "storage/row_reader.h"

#include "storage/connection.h"

#include <algorithm>
#include <limits>

namespace storage {

using engine::Cursor;

namespace {

// Rows taken in at once when a result is read forward: more than any detail screen shows.
constexpr qint64 FirstRows = 64;
// Rows that room is made for at once; a window may be far longer than its result.
constexpr int MostReserved = 1024;
// What a search may cost while the rows are looked at in order: some thousand rows.
constexpr int WorkInOrder = 200'000;

} // namespace

RowReader::RowReader(Connection& connection, const sql::Compiled& compiled, QString source,
                     int window)
    : m_connection(connection), m_compiled(compiled), m_source(std::move(source)), m_window(window)
{
    for (const sql::ResultColumn& column : compiled.columns)
        m_types.push_back(column.type);
    if (!compiled.updatableTable.isEmpty())
        m_types.push_back(schema::ColumnType::Long);
}

RowReader::Move RowReader::moveTo(qint64 position)
{
    if (isBuffered(position))
        return stand(position);
    if (m_end >= 0 && position >= m_end)
        return end(m_end);
    if (m_window > 0)
        return readWindow(position);
    if (position <= m_position || m_position < 0) {
        const Move started = startForward();
        if (started != Move::Row || isBuffered(position))
            return started == Move::Row ? stand(position) : started;
    }
    Move move = Move::Row;
    while (move == Move::Row && m_position < position)
        move = stepForward();
    return move;
}

RowReader::Move RowReader::stand(qint64 position)
{
    m_position = position;
    m_hasRow = true;
    m_live = false;
    return Move::Row;
}

RowReader::Move RowReader::end(qint64 position)
{
    m_position = position;
    m_hasRow = false;
    m_live = false;
    return Move::End;
}

void RowReader::record(Error error)
{
    error.statement = m_source;
    m_connection.fail(std::move(error));
}

RowReader::Move RowReader::fail(const Error& error)
{
    record(error);
    m_cursor.reset();
    m_hasRow = false;
    m_live = false;
    return Move::Failed;
}

std::unique_ptr<Cursor> RowReader::openCursor(const sql::Emitted& statement)
{
    Error error;
    auto cursor = m_connection.session()->prepare(statement, &error);
    if (!cursor)
        fail(error);
    return cursor;
}

Cursor::Step RowReader::takeRows(Cursor& cursor, qint64 limit, engine::RowBuffer* rows,
                                 qint64* count) const
{
    Cursor::Step step = Cursor::Step::Row;
    while (*count < limit && (step = cursor.step()) == Cursor::Step::Row) {
        cursor.takeRow(columnCount(), rows);
        ++*count;
    }
    return step;
}

RowReader::Move RowReader::readWindow(qint64 position)
{
    engine::RowBuffer rows;
    rows.reserve(static_cast<std::size_t>(std::min(m_window, MostReserved)) * m_types.size());
    qint64 count = 0;
    if (!takeWindow(position, &rows, &count))
        return Move::Failed;
    m_rows = std::move(rows);
    m_first = position;
    m_count = count;
    // A window that is not filled ends the rows: a search need not be run again to find no more.
    m_end = count < m_window && (count > 0 || position == 0) ? position + count : -1;
    return count > 0 ? stand(position) : end(position);
}

// A search looks at the rows in order first: what many rows hold is found on the way to the first
// few of them. What is rarer is found sooner by reading all rows as they lie.
bool RowReader::takeWindow(qint64 position, engine::RowBuffer* rows, qint64* count)
{
    const sql::Dialect& dialect = m_connection.session()->dialect();
    const bool isSearch = m_compiled.page && !m_compiled.page->searchHead.isEmpty();
    while (true) {
        const auto cursor =
            openCursor(m_searches ? sql::searchWindow(m_compiled, m_window, position, dialect)
                                  : sql::window(m_compiled, m_window, position, dialect));
        if (!cursor)
            return false;
        if (isSearch && !m_searches)
            cursor->limitWork(WorkInOrder);
        const Cursor::Step step = takeRows(*cursor, m_window, rows, count);
        if (step == Cursor::Step::Failed)
            fail(cursor->error());
        if (step != Cursor::Step::Stopped)
            return step != Cursor::Step::Failed;
        m_searches = true;
        rows->clear();
        *count = 0;
    }
}

RowReader::Move RowReader::startForward()
{
    m_cursor = openCursor(m_compiled.statement);
    if (!m_cursor)
        return Move::Failed;
    m_rows.clear();
    m_first = 0;
    m_count = 0;
    m_end = -1;
    const Cursor::Step step = takeRows(*m_cursor, FirstRows, &m_rows, &m_count);
    if (step == Cursor::Step::Failed)
        return fail(m_cursor->error());
    if (step == Cursor::Step::Done) {
        m_cursor.reset();
        m_end = m_count;
    }
    return m_count > 0 ? stand(0) : end(0);
}

// From the current row to the next one, past what is buffered.
RowReader::Move RowReader::stepForward()
{
    if (isBuffered(m_position + 1))
        return stand(m_position + 1);
    if (!m_cursor)
        return end(m_position + 1);
    switch (m_cursor->step()) {
    case Cursor::Step::Row:
        // What was read before is not kept: going back starts anew.
        m_rows.clear();
        m_count = 0;
        ++m_position;
        m_hasRow = true;
        m_live = true;
        return Move::Row;
    case Cursor::Step::Done:
        m_cursor.reset();
        m_end = m_position + 1;
        return end(m_end);
    case Cursor::Step::Failed:
    case Cursor::Step::Stopped:
        break;
    }
    return fail(m_cursor->error());
}

void RowReader::drain()
{
    if (!m_cursor)
        return;
    if (m_live) {
        m_rows.clear();
        m_cursor->takeRow(columnCount(), &m_rows);
        m_first = m_position;
        m_count = 1;
        m_live = false;
    }
    qint64 more = 0;
    const Cursor::Step step =
        takeRows(*m_cursor, std::numeric_limits<qint64>::max(), &m_rows, &more);
    m_count += more;
    m_end = m_first + m_count;
    if (step == Cursor::Step::Failed)
        record(m_cursor->error());
    m_cursor.reset();
}

void RowReader::replaceRow(const std::vector<Value>& values)
{
    m_rows.replace(rowStart(), values);
}

void RowReader::removeRow()
{
    m_rows.remove(rowStart(), m_types.size());
    --m_count;
    if (m_end >= 0)
        --m_end;
    --m_position;
    m_hasRow = false;
}

} // namespace storage
