#pragma once

#include "storage/engine/row_buffer.h"

#include <vector>

namespace storage {

// Rows that follow each other in a result, in memory. A place may be empty: its row is gone, or it
// could not be read. Positions count from 0.
class RowWindow {
public:
    enum class Place : quint8 { Row, Gone, Unreadable };

    explicit RowWindow(std::size_t columns) : m_columns(columns) {}

    void start(qint64 position, std::size_t rowsExpected = 0);
    // The next place, with the row that was last put into buffer(), or empty.
    void addRow();
    void addEmpty(Place why);
    engine::RowBuffer& buffer() { return m_cells; }

    bool holds(qint64 position) const { return position >= m_first && position < end(); }
    qint64 first() const { return m_first; }
    qint64 count() const { return static_cast<qint64>(m_places.size()); }
    qint64 end() const { return m_first + count(); }
    Place place(qint64 position) const { return m_places[index(position)].state; }

    Value value(qint64 position, int column, schema::ColumnType type) const
    {
        return m_cells.value(cell(position) + static_cast<std::size_t>(column), type);
    }
    void replace(qint64 position, const std::vector<Value>& values)
    {
        m_cells.replace(cell(position), values);
    }
    // Takes a row out; those behind it move up.
    void remove(qint64 position);

private:
    struct Slot {
        std::size_t row = 0; // in the buffer
        Place state = Place::Row;
    };
    std::size_t index(qint64 position) const
    {
        return static_cast<std::size_t>(position - m_first);
    }
    std::size_t cell(qint64 position) const { return m_places[index(position)].row * m_columns; }

    std::size_t m_columns;
    qint64 m_first = 0;
    std::size_t m_rows = 0;
    std::vector<Slot> m_places;
    engine::RowBuffer m_cells; // the rows one after another
};

} // namespace storage
