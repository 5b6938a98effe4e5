#pragma once

#include <QList>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace text {

// What each code point folds to, worked out once per run and constant afterwards.
class FoldTable {
public:
    static const FoldTable& instance();

    // An entry for a code point up to U+FFFF is its fold when that is one or two UTF-16 units: the
    // first in the low half, the second (or 0) in the high half. The high half kLong says that the
    // low half is a place among the longer folds.
    static constexpr std::uint32_t kLong = 0xFFFF;

    std::uint32_t entry(char16_t unit) const { return m_entries[unit]; }
    std::u16string_view longFold(std::uint32_t entry) const { return m_longFolds[entry & 0xFFFF]; }

    // The fold of a code point above U+FFFF; empty when it is the code point itself.
    std::u16string_view supplementary(char32_t codePoint) const;

    // All code points in whose folds this unit stands. Looks through the whole table.
    QList<char32_t> spellings(char16_t unit) const;

    // For each code point up to U+FFFF: bit i is set when units[i] stands in its fold. At most
    // eight units.
    std::vector<std::uint8_t> holders(std::u16string_view units) const;

private:
    FoldTable();

    std::array<std::uint32_t, 0x10000> m_entries;
    std::vector<std::u16string> m_longFolds;
    std::vector<std::pair<char32_t, std::u16string>> m_supplementary; // by code point
};

} // namespace text
