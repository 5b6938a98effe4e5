#pragma once

#include <QStringView>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace text {

// A quick look at a text before it is folded for a Like pattern: a text that lacks one of the
// pattern's literal characters in every spelling cannot match. A kanji has few spellings and is
// sought as it is written; kana, letters and digits have many, and a table is made for them once
// the pattern was asked about so many texts that it pays.
class LikeFilter {
public:
    static constexpr int Patience = 200; // texts

    explicit LikeFilter(QStringView patternAsWritten, int patience = Patience);

    // False only when the text (in UTF-8, not folded) does not match the pattern.
    bool mayMatch(std::string_view utf8);

private:
    bool holdsAll(std::string_view utf8) const;

    std::vector<std::string> m_spellings; // of a kanji, in UTF-8
    std::u16string m_units;               // without one: what a text must hold when folded
    std::vector<std::uint8_t> m_held;     // by code point: a bit for each of m_units in its fold
    int m_patience;
};

} // namespace text
