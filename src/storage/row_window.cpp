#include "storage/row_window.h"

namespace storage {

void RowWindow::start(qint64 position, std::size_t rowsExpected)
{
    m_cells.clear();
    m_places.clear();
    m_rows = 0;
    m_first = position;
    m_cells.reserve(rowsExpected * m_columns);
    m_places.reserve(rowsExpected);
}

void RowWindow::addRow()
{
    m_places.push_back({m_rows, Place::Row});
    ++m_rows;
}

void RowWindow::addEmpty(Place why)
{
    m_places.push_back({0, why});
}

void RowWindow::remove(qint64 position)
{
    m_places.erase(m_places.begin() + static_cast<std::ptrdiff_t>(index(position)));
}

} // namespace storage
