#pragma once

#include "storage/base/value.h"
#include "storage/row_finder.h"
#include "storage/row_window.h"
#include "storage/sql/compile.h"

#include <memory>
#include <vector>

namespace storage {

class Connection;

// The rows of a compiled SELECT, one of them the current one; part of Recordset. Rows are read in
// blocks, each by a statement of its own, so that no lock is held between two of them. Positions
// count from 0.
//
// Read forward, a short result is taken into memory at once. Of a longer one the rows' addresses
// are found when it is opened, and its blocks are read by them; a whole table is read by stretches
// of its addresses. In windows, RowFinder finds the rows of each window. Rows that have no
// addresses are all taken into memory.
class RowReader {
public:
    enum class Move { Row, End, Failed };

    // `window` rows are read at a time, 0 reads forward. `compiled` outlives the reader; `source`
    // is the statement as it was written.
    RowReader(Connection& connection, const sql::Compiled& compiled, QString source, int window);

    // A row that is gone is passed over: the next one behind it is then the current one. After a
    // failure, which is recorded in the connection, there is no current row; position() is then
    // that of the row that could not be read, and those behind it may be readable.
    Move moveTo(qint64 position);
    Move moveNext() { return moveTo(m_position + 1); }
    // The current row's position; before the first one -1, behind the last one their number.
    qint64 position() const { return m_position; }
    bool hasRow() const { return m_hasRow; }
    // The position is that of a row that could not be read.
    bool isUnreadable() const
    {
        return m_rows.holds(m_position) && m_rows.place(m_position) == RowWindow::Place::Unreadable;
    }

    // The current row's value; behind the last field of rows that come from one table stands their
    // address.
    Value value(int column) const
    {
        return m_rows.value(m_position, column, m_types[static_cast<std::size_t>(column)]);
    }

    // How many rows there are, if that is known or found with the rows themselves; -1 when it is
    // for the engine to count, and after a failure.
    qint64 count();
    // The position of the row with this key in a source of the statement; -1 when there is none.
    // Nothing after a failure, and when the rows have no addresses.
    std::optional<qint64> find(qsizetype source, qint64 key);
    // How the rows are found; null when they have no addresses.
    const sql::Finding* finding();

    // The next windows have this many rows; nothing to a result that is read forward.
    void setWindow(int rows) { m_window = m_window > 0 ? rows : 0; }
    // Puts other values in the current row's place.
    void replaceRow(const std::vector<Value>& values) { m_rows.replace(m_position, values); }
    // Takes the current row out; the next one is the one behind it.
    void removeRow();

private:
    enum class Reading { Unknown, Whole, Stretches, Found };

    Move stand(qint64 position);
    Move end(qint64 position);
    Move fail(Error error);
    void record(Error error);
    Move readForward(qint64 position);
    Move startForward();
    Move readStretch();
    Move readAll();
    Move readWindow(qint64 position);
    std::optional<Move> readDirectly(qint64 position, bool few);
    Move readFound(qint64 position, qint64 count);
    void readBlock(const qint64* addresses, qint64 count);
    void readOneByOne(const qint64* addresses, qint64 count, Error error);
    Error takeBlock(const qint64* addresses, qint64 count);
    Move standFrom(qint64 position);
    bool takeCursor(const sql::Emitted& statement, qint64 limit, bool* done);
    bool takeCursor(const sql::Emitted& statement, qint64 limit, qint64 workLimit, bool* done,
                    Error* error);
    RowFinder* finder();

    Connection& m_connection;
    const sql::Compiled& m_compiled;
    QString m_source;
    std::vector<schema::ColumnType> m_types; // of the fields, then of the row's address
    int m_window;

    std::shared_ptr<const sql::Finding> m_finding;
    bool m_findingMade = false;
    std::unique_ptr<RowFinder> m_finder;
    Reading m_reading = Reading::Unknown; // how a result is read forward
    qint64 m_lastAddress = 0;             // of the whole table when its reading began
    qint64 m_stretchEnd = 0;              // the last address that was read

    RowWindow m_rows;
    qint64 m_end = -1; // number of rows, once it is known
    qint64 m_position = -1;
    bool m_hasRow = false;
    bool m_toldUnreadable = false;
};

} // namespace storage
