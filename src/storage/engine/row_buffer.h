#pragma once

#include "storage/base/value.h"
#include "storage/schema/catalog.h"

#include <string>
#include <string_view>
#include <vector>

namespace storage::engine {

// Rows taken out of an engine, cell by cell in one stretch. Texts stay UTF-8 until they are asked
// for: of a page's cells a list shows a few.
class RowBuffer {
public:
    void addNull() { m_cells.push_back({}); }
    void addInteger(qint64 number) { addCell(Kind::Integer).integer = number; }
    void addReal(double number) { addCell(Kind::Real).real = number; }
    void addText(std::string_view utf8)
    {
        Cell& cell = addCell(Kind::Text);
        cell.offset = m_texts.size();
        cell.length = static_cast<quint32>(utf8.size());
        m_texts += utf8;
    }

    // The column type tells date-times from texts.
    Value value(std::size_t cell, schema::ColumnType type) const;

    void reserve(std::size_t cells) { m_cells.reserve(cells); }
    void clear();
    // Other values for the cells from `first` on.
    void replace(std::size_t first, const std::vector<Value>& values);
    // Takes cells out; those behind them move up.
    void remove(std::size_t first, std::size_t count);

private:
    enum class Kind : quint8 { Null, Integer, Real, Text };
    struct Cell {
        union {
            qint64 integer = 0;
            double real;
            std::size_t offset; // of a text, into m_texts
        };
        quint32 length = 0;
        Kind kind = Kind::Null;
    };

    Cell& addCell(Kind kind)
    {
        Cell& cell = m_cells.emplace_back();
        cell.kind = kind;
        return cell;
    }
    void add(const Value& value);

    std::vector<Cell> m_cells;
    std::string m_texts;
};

} // namespace storage::engine
