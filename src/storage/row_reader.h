#pragma once

#include "storage/engine/engine.h"
#include "storage/sql/compile.h"
#include "storage/value.h"

#include <memory>
#include <vector>

namespace storage {

class Connection;

// The rows of a compiled SELECT, one of them the current one; part of Recordset.
//
// Read forward, the first rows are taken into memory at once, so that a short result holds no lock
// on the file; of a longer one each further row is read when it is moved to. In windows, each
// window is read by a statement of its own. Positions count from 0.
class RowReader {
public:
    enum class Move { Row, End, Failed };

    // `window` rows are read at a time, 0 reads forward. `compiled` outlives the reader; `source`
    // is the statement as it was written.
    RowReader(Connection& connection, const sql::Compiled& compiled, QString source, int window);

    // After a failure, which is recorded in the connection, there is no current row.
    Move moveTo(qint64 position);
    Move moveNext() { return moveTo(m_position + 1); }
    // The current row's position; before the first one -1, behind the last one their number.
    qint64 position() const { return m_position; }
    bool hasRow() const { return m_hasRow; }

    // The current row's value; the row's address stands behind the last field.
    Value value(int column) const
    {
        const auto index = static_cast<std::size_t>(column);
        if (m_live)
            return m_cursor->value(column, m_types[index]);
        return m_rows.value(rowStart() + index, m_types[index]);
    }

    // The next windows have this many rows; nothing to a result that is read forward.
    void setWindow(int rows) { m_window = m_window > 0 ? rows : 0; }
    // Takes the rest of a result read forward into memory and lets go of the engine's statement.
    void drain();
    // Puts other values in the current row's place. To be drained before.
    void replaceRow(const std::vector<Value>& values);
    // Takes the current row out; the next one is the one behind it. To be drained before.
    void removeRow();

private:
    std::size_t rowStart() const
    {
        return static_cast<std::size_t>(m_position - m_first) * m_types.size();
    }
    bool isBuffered(qint64 position) const
    {
        return position >= m_first && position < m_first + m_count;
    }
    Move stand(qint64 position);
    Move end(qint64 position);
    Move fail(const Error& error);
    void record(Error error);
    Move readWindow(qint64 position);
    // Takes the rows of a window in; false after a failure.
    bool takeWindow(qint64 position, engine::RowBuffer* rows, qint64* count);
    Move startForward();
    Move stepForward();
    std::unique_ptr<engine::Cursor> openCursor(const sql::Emitted& statement);
    // Takes up to `limit` rows of the cursor in; Done when it has no more.
    engine::Cursor::Step takeRows(engine::Cursor& cursor, qint64 limit, engine::RowBuffer* rows,
                                  qint64* count) const;
    int columnCount() const { return static_cast<int>(m_types.size()); }

    Connection& m_connection;
    const sql::Compiled& m_compiled;
    QString m_source;
    std::vector<schema::ColumnType> m_types; // of the fields, then of the row's address
    int m_window;

    std::unique_ptr<engine::Cursor> m_cursor; // while a result read forward goes on
    engine::RowBuffer m_rows;                 // the buffered rows, one after another
    qint64 m_first = 0;                       // position of the first buffered row
    qint64 m_count = 0;
    qint64 m_end = -1; // number of rows, once it is known
    qint64 m_position = -1;
    bool m_hasRow = false;
    bool m_searches = false; // looking at the rows in order has taken too long
    bool m_live = false;     // the current row is the cursor's, not a buffered one
};

} // namespace storage
