#include "storage/row_reader.h"

#include "storage/connection.h"

#include <algorithm>
#include <limits>

namespace storage {

using engine::Cursor;

namespace {

// Rows taken in at once when a result is read forward: more than any detail screen shows.
constexpr qint64 FirstRows = 64;
// Rows read by one statement.
constexpr qint64 BlockRows = 256;
// The same of a whole table, where no list of addresses is needed.
constexpr qint64 StretchRows = 1024;
constexpr qint64 AllRows = std::numeric_limits<qint64>::max();

} // namespace

RowReader::RowReader(Connection& connection, const sql::Compiled& compiled, QString source,
                     int window)
    : m_connection(connection),
      m_compiled(compiled),
      m_source(std::move(source)),
      m_window(window),
      m_rows(static_cast<std::size_t>(compiled.columns.size())
             + (compiled.updatableTable.isEmpty() ? 0 : 1))
{
    for (const sql::ResultColumn& column : compiled.columns)
        m_types.push_back(column.type);
    if (!compiled.updatableTable.isEmpty())
        m_types.push_back(schema::ColumnType::Long);
}

const sql::Finding* RowReader::finding()
{
    if (!std::exchange(m_findingMade, true))
        m_finding = sql::finding(m_compiled, m_connection.session()->dialect());
    return m_finding.get();
}

RowFinder* RowReader::finder()
{
    if (!m_finder && finding())
        m_finder = std::make_unique<RowFinder>(*m_connection.session(), *m_finding);
    return m_finder.get();
}

RowReader::Move RowReader::moveTo(qint64 position)
{
    if (m_rows.holds(position))
        return standFrom(position);
    if (m_end >= 0 && position >= m_end)
        return end(m_end);
    return m_window > 0 ? readWindow(position) : readForward(position);
}

// Stands on the row at a position that is in memory, or on the next one that is there.
RowReader::Move RowReader::standFrom(qint64 position)
{
    for (; m_rows.holds(position); ++position) {
        if (m_rows.place(position) == RowWindow::Place::Row)
            return stand(position);
        if (m_rows.place(position) == RowWindow::Place::Unreadable) {
            m_position = position;
            m_hasRow = false;
            return Move::Failed;
        }
    }
    return moveTo(position);
}

RowReader::Move RowReader::stand(qint64 position)
{
    m_position = position;
    m_hasRow = true;
    return Move::Row;
}

RowReader::Move RowReader::end(qint64 position)
{
    m_position = position;
    m_hasRow = false;
    return Move::End;
}

void RowReader::record(Error error)
{
    error.statement = m_source;
    m_connection.fail(std::move(error));
}

RowReader::Move RowReader::fail(Error error)
{
    record(std::move(error));
    m_hasRow = false;
    return Move::Failed;
}

// Adds the rows of a statement, up to a limit, to those in memory; `done` when it has no more.
// False after a failure, and when it was stopped by the limit of work (0: none).
bool RowReader::takeCursor(const sql::Emitted& statement, qint64 limit, qint64 workLimit,
                           bool* done, Error* error)
{
    const auto cursor = m_connection.session()->prepare(statement, error);
    if (!cursor)
        return false;
    if (workLimit > 0)
        cursor->limitWork(workLimit);
    Cursor::Step step = Cursor::Step::Row;
    for (qint64 taken = 0; taken < limit; ++taken) {
        step = cursor->step();
        if (step != Cursor::Step::Row)
            break;
        cursor->takeRow(0, static_cast<int>(m_types.size()), &m_rows.buffer());
        m_rows.addRow();
    }
    *done = step == Cursor::Step::Done;
    if (step == Cursor::Step::Failed)
        *error = cursor->error();
    return step == Cursor::Step::Done || step == Cursor::Step::Row;
}

// The same without a limit of work; a failure is recorded.
bool RowReader::takeCursor(const sql::Emitted& statement, qint64 limit, bool* done)
{
    Error error;
    if (takeCursor(statement, limit, 0, done, &error))
        return true;
    fail(std::move(error));
    return false;
}

// Forward.

RowReader::Move RowReader::readForward(qint64 position)
{
    const bool restarts = m_reading == Reading::Unknown || position < m_rows.first();
    if (restarts && m_reading != Reading::Found) {
        const Move started = startForward();
        if (started != Move::Row)
            return started;
    }
    if (m_reading == Reading::Found) {
        m_rows.start(position);
        return readFound(position, BlockRows);
    }
    while (m_reading == Reading::Stretches && m_end < 0 && position >= m_rows.end()) {
        if (readStretch() == Move::Failed)
            return Move::Failed;
    }
    return m_rows.holds(position) ? stand(position) : end(m_end);
}

// Tells how the result is to be read, and reads its beginning.
RowReader::Move RowReader::startForward()
{
    m_end = -1;
    m_rows.start(0);
    bool done = false;
    if (!takeCursor(m_compiled.statement, FirstRows, &done))
        return Move::Failed;
    if (done) {
        m_reading = Reading::Whole;
        m_end = m_rows.end();
        return m_end > 0 ? Move::Row : end(0);
    }
    if (!finding())
        return readAll();
    if (m_finding->wholeTable) {
        m_reading = Reading::Stretches;
        m_rows.start(0);
        Error error;
        const auto last = m_connection.session()->prepare(m_finding->lastAddress, &error);
        if (!last || last->step() != Cursor::Step::Row)
            return fail(last ? last->error() : error);
        // Rows that are added from now on are not met: a walk that adds rows comes to its end.
        m_lastAddress = last->integer(0);
        m_stretchEnd = sql::NoAddress;
        return readStretch();
    }
    m_reading = Reading::Found;
    if (!finder()->findAll())
        return fail(m_finder->error());
    m_end = m_finder->total();
    return Move::Row;
}

RowReader::Move RowReader::readAll()
{
    m_reading = Reading::Whole;
    m_rows.start(0);
    bool done = false;
    if (!takeCursor(m_compiled.statement, AllRows, &done))
        return Move::Failed;
    m_end = m_rows.end();
    return m_end > 0 ? Move::Row : end(0);
}

// The next rows of a whole table, behind those in memory, which they replace.
RowReader::Move RowReader::readStretch()
{
    sql::Emitted stretch = m_finding->stretch;
    const qsizetype parameters = stretch.parameters.size();
    stretch.parameters[parameters - 2] = Value(m_stretchEnd);
    stretch.parameters[parameters - 1] = Value(m_lastAddress);
    stretch.text += u' ' + m_connection.session()->dialect().window(StretchRows, 0);
    m_rows.start(m_rows.end(), StretchRows);
    bool done = false;
    if (!takeCursor(stretch, StretchRows, &done))
        return Move::Failed;
    if (m_rows.count() < StretchRows)
        m_end = m_rows.end();
    if (m_rows.count() == 0)
        return end(m_end);
    const int address = static_cast<int>(m_types.size()) - 1;
    m_stretchEnd = m_rows.value(m_rows.end() - 1, address, schema::ColumnType::Long).toInteger();
    return Move::Row;
}

// In windows.

RowReader::Move RowReader::readWindow(qint64 position)
{
    // Few rows are read as they are asked for: it takes longer to see how else they could be found.
    const bool few = m_compiled.ofOneRecord && position == 0;
    if (!few && !finding()) {
        if (m_end < 0 && readAll() == Move::Failed)
            return Move::Failed;
        return m_rows.holds(position) ? stand(position) : end(m_end);
    }
    const bool isFound = m_finder && (m_finder->isComplete() || m_finder->rows().holds(position));
    if (!isFound && (few || position == 0 || m_finding->wholeTable)) {
        if (const std::optional<Move> direct = readDirectly(position, few))
            return *direct;
    }
    if (!finder()) // made now, as the rows could not be read so
        return Move::Failed;
    if (!finder()->find(position, m_window))
        return fail(m_finder->error());
    m_end = m_finder->total();
    if (m_end >= 0 && position >= m_end)
        return end(m_end);
    if (!m_finder->rows().holds(position)) // behind the end of a list whose length is not known
        return end(position);
    m_rows.start(position, static_cast<std::size_t>(std::min<qint64>(m_window, BlockRows)));
    return readFound(position, m_window);
}

// Reads a window at once where that is the shortest way. Nothing where it is not, or where some of
// the rows cannot be read so.
std::optional<RowReader::Move> RowReader::readDirectly(qint64 position, bool few)
{
    RowFinder::Direct direct{RowFinder::Direct::AsWritten, 0};
    if (!few && !m_finding->wholeTable)
        direct = finder()->direct(m_window);
    if (direct.kind == RowFinder::Direct::No)
        return std::nullopt;
    sql::Emitted rows = direct.kind == RowFinder::Direct::AsWritten ? m_compiled.statement
                                                                    : m_finding->rowsOnTheWay;
    rows.text += u' ' + m_connection.session()->dialect().window(m_window, position);
    m_rows.start(position, static_cast<std::size_t>(std::min<qint64>(m_window, BlockRows)));
    bool done = false;
    Error error;
    if (!takeCursor(rows, m_window, direct.workLimit, &done, &error)) {
        m_rows.start(position);
        return std::nullopt;
    }
    // A window that is not filled ends the rows.
    if (m_rows.count() < m_window && (m_rows.count() > 0 || position == 0))
        m_end = m_rows.end();
    return m_rows.count() > 0 ? stand(position) : end(position);
}

// Reads rows by their addresses into the memory that was made ready for them.
RowReader::Move RowReader::readFound(qint64 position, qint64 count)
{
    const FoundRows& found = m_finder->rows();
    const qint64 behind = std::min(position + count, found.end());
    for (qint64 next = position; next < behind; next += BlockRows)
        readBlock(found.at(next), std::min(BlockRows, behind - next));
    return standFrom(position);
}

void RowReader::readBlock(const qint64* addresses, qint64 count)
{
    const qint64 before = m_rows.count();
    Error error = takeBlock(addresses, count);
    const qint64 taken = m_rows.count() - before;
    if (taken < count)
        readOneByOne(addresses + taken * m_finding->sources.size(), count - taken,
                     std::move(error));
}

// What can be read is read, though some of the rows lie where the file is damaged.
void RowReader::readOneByOne(const qint64* addresses, qint64 count, Error error)
{
    if (!std::exchange(m_toldUnreadable, true))
        record(std::move(error));
    for (qint64 row = 0; row < count; ++row) {
        const qint64 before = m_rows.count();
        takeBlock(addresses + row * m_finding->sources.size(), 1);
        if (m_rows.count() == before)
            m_rows.addEmpty(RowWindow::Place::Unreadable);
    }
}

// Gives the error that it ended with; all rows were read when there are as many places more.
Error RowReader::takeBlock(const qint64* addresses, qint64 count)
{
    const qsizetype width = m_finding->sources.size();
    engine::Session& session = *m_connection.session();
    Error error;
    const auto cursor =
        session.prepare(sql::readAt(*m_finding, addresses, count, session.dialect()), &error);
    if (!cursor)
        return error;
    const auto fields = static_cast<int>(m_compiled.columns.size());
    Cursor::Step step = cursor->step();
    for (; step == Cursor::Step::Row; step = cursor->step(), addresses += width) {
        bool gone = false;
        for (int source = 0; source < width; ++source) {
            gone = gone
                || (addresses[source] != sql::NoAddress
                    && cursor->integer(1 + fields + source) == sql::NoAddress);
        }
        if (gone) {
            m_rows.addEmpty(RowWindow::Place::Gone);
            continue;
        }
        cursor->takeRow(1, static_cast<int>(m_types.size()), &m_rows.buffer());
        m_rows.addRow();
    }
    return step == Cursor::Step::Failed ? cursor->error() : error;
}

qint64 RowReader::count()
{
    if (m_end >= 0)
        return m_end;
    if (m_position < 0 && m_window == 0)
        return -1; // nothing is read yet
    if (!finding()) {
        const qint64 position = m_position;
        if (m_window > 0 && readAll() != Move::Failed)
            moveTo(position);
        return m_end;
    }
    // A search that counts has found all its rows.
    if (m_window > 0 && m_finding->searches && finder()->findAll())
        m_end = m_finder->total();
    return m_end;
}

std::optional<qint64> RowReader::find(qsizetype source, qint64 key)
{
    if (!finder())
        return std::nullopt;
    const std::optional<qint64> found = m_finder->findRow(source, key, m_window);
    if (!found)
        fail(m_finder->error());
    return found;
}

void RowReader::removeRow()
{
    m_rows.remove(m_position);
    if (m_finder)
        m_finder->remove(m_position);
    if (m_end >= 0)
        --m_end;
    --m_position;
    m_hasRow = false;
}

} // namespace storage
