#include "storage/found_rows.h"

#include <algorithm>
#include <numeric>

namespace storage {

namespace {

constexpr qint64 BitsOfAddress = 64;

bool isBefore(std::span<const qint64> one, std::span<const qint64> other)
{
    return std::ranges::lexicographical_compare(one, other);
}

} // namespace

void FoundRows::remove(qint64 position)
{
    const auto begin = m_addresses.begin()
        + static_cast<std::ptrdiff_t>(static_cast<std::size_t>(position - m_first) * m_width);
    m_addresses.erase(begin, begin + static_cast<std::ptrdiff_t>(m_width));
}

qint64 FoundRows::find(qsizetype source, qint64 address) const
{
    for (auto i = static_cast<std::size_t>(source); i < m_addresses.size(); i += m_width) {
        if (m_addresses[i] == address)
            return m_first + static_cast<qint64>(i / m_width);
    }
    return -1;
}

QString AddressSet::list(qsizetype source) const
{
    QString text(u'[');
    for (auto i = static_cast<std::size_t>(source); i < m_rows.size(); i += m_width) {
        if (text.size() > 1)
            text += u',';
        text += QString::number(m_rows[i]);
    }
    return text + u']';
}

void AddressSet::sort()
{
    if (m_width == 1 && !m_rows.empty()) {
        const auto [least, most] = std::ranges::minmax(m_rows);
        // One bit for each address, as long as that is no more memory than the addresses take.
        if (least >= 0 && most / BitsOfAddress < static_cast<qint64>(m_rows.size())) {
            m_marks.assign(static_cast<std::size_t>(most) + 1, false);
            for (const qint64 address : m_rows)
                m_marks[static_cast<std::size_t>(address)] = true;
            return;
        }
        std::ranges::sort(m_rows);
        return;
    }
    std::vector<std::size_t> order(static_cast<std::size_t>(count()));
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order,
                      [this](std::size_t a, std::size_t b) { return isBefore(row(a), row(b)); });
    std::vector<qint64> sorted;
    sorted.reserve(m_rows.size());
    for (const std::size_t place : order)
        sorted.insert(sorted.end(), row(place).begin(), row(place).end());
    m_rows = std::move(sorted);
}

bool AddressSet::contains(std::span<const qint64> wanted) const
{
    if (!m_marks.empty()) {
        const qint64 address = wanted.front();
        return address >= 0 && static_cast<std::size_t>(address) < m_marks.size()
            && m_marks[static_cast<std::size_t>(address)];
    }
    std::size_t low = 0;
    auto high = static_cast<std::size_t>(count());
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if (isBefore(row(middle), wanted))
            low = middle + 1;
        else
            high = middle;
    }
    return low < static_cast<std::size_t>(count()) && std::ranges::equal(row(low), wanted);
}

} // namespace storage
