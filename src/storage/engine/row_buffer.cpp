#include "storage/engine/row_buffer.h"

#include <algorithm>

namespace storage::engine {

void RowBuffer::add(const Value& value)
{
    switch (value.type()) {
    case ValueType::Null:
        return addNull();
    case ValueType::Integer:
        return addInteger(value.toInteger());
    case ValueType::Real:
        return addReal(value.toReal());
    case ValueType::Text:
    case ValueType::DateTime:
        break;
    }
    const QByteArray utf8 = value.toText().toUtf8();
    addText({utf8.constData(), static_cast<std::size_t>(utf8.size())});
}

Value RowBuffer::value(std::size_t cell, schema::ColumnType type) const
{
    const Cell& found = m_cells[cell];
    switch (found.kind) {
    case Kind::Null:
        return {};
    case Kind::Integer:
        return Value(found.integer);
    case Kind::Real:
        return Value(found.real);
    case Kind::Text:
        break;
    }
    QString text = QString::fromUtf8(m_texts.data() + found.offset, found.length);
    if (type == schema::ColumnType::DateTime)
        return Value::fromDateTimeText(std::move(text));
    return Value(std::move(text));
}

void RowBuffer::clear()
{
    m_cells.clear();
    m_texts.clear();
}

void RowBuffer::replace(std::size_t first, const std::vector<Value>& values)
{
    const std::size_t end = m_cells.size();
    for (const Value& value : values)
        add(value);
    std::copy(m_cells.begin() + static_cast<std::ptrdiff_t>(end), m_cells.end(),
              m_cells.begin() + static_cast<std::ptrdiff_t>(first));
    m_cells.resize(end);
}

void RowBuffer::remove(std::size_t first, std::size_t count)
{
    const auto from = m_cells.begin() + static_cast<std::ptrdiff_t>(first);
    m_cells.erase(from, from + static_cast<std::ptrdiff_t>(count));
}

} // namespace storage::engine
