#pragma once

#include "storage/sql/finding.h"

#include <span>
#include <vector>

namespace storage {

// Rows by their addresses, in order: one address for each table of a row. Either all rows of a
// result or a stretch of them; positions count from 0.
class FoundRows {
public:
    explicit FoundRows(qsizetype width) : m_width(static_cast<std::size_t>(width)) {}

    // Starts anew with a stretch that begins at this position.
    void start(qint64 position)
    {
        m_addresses.clear();
        m_first = position;
    }
    void add(std::span<const qint64> row)
    {
        for (const qint64 address : row) // a row has one or two
            m_addresses.push_back(address);
    }

    qsizetype width() const { return static_cast<qsizetype>(m_width); }
    qint64 first() const { return m_first; }
    qint64 count() const { return static_cast<qint64>(m_addresses.size() / m_width); }
    // Behind the last row.
    qint64 end() const { return m_first + count(); }
    bool holds(qint64 position) const { return position >= m_first && position < end(); }
    // The addresses from a held position on; the rows' follow each other.
    const qint64* at(qint64 position) const
    {
        return m_addresses.data() + static_cast<std::size_t>(position - m_first) * m_width;
    }
    // Takes a row out; those behind it move up.
    void remove(qint64 position);
    // The position of the first row with this address in a source; -1 when none is held.
    qint64 find(qsizetype source, qint64 address) const;

private:
    std::size_t m_width;
    qint64 m_first = 0;
    std::vector<qint64> m_addresses;
};

// Which rows are among those that were found: by the addresses of all sources or of one.
class AddressSet {
public:
    explicit AddressSet(qsizetype width) : m_width(static_cast<std::size_t>(width)) {}

    void add(std::span<const qint64> row) { m_rows.insert(m_rows.end(), row.begin(), row.end()); }
    qint64 count() const { return static_cast<qint64>(m_rows.size() / m_width); }
    // Each row's address in a source, as the text of a list: "[1,2]".
    QString list(qsizetype source) const;
    // To be called once, when all are added and before the first question.
    void sort();
    bool contains(std::span<const qint64> wanted) const;

private:
    std::span<const qint64> row(std::size_t place) const
    {
        return {m_rows.data() + place * m_width, m_width};
    }

    std::size_t m_width;
    std::vector<qint64> m_rows; // the addresses of one row after those of another
    std::vector<bool> m_marks;  // by address; only for one source whose addresses lie close
};

} // namespace storage
