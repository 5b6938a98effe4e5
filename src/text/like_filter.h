#pragma once

#include <QStringView>
#include <string>
#include <string_view>
#include <vector>

namespace text {

// A quick look at a text before it is folded for a Like pattern. A kanji has few spellings: a text
// that holds none of those of a kanji in the pattern cannot match.
class LikeFilter {
public:
    explicit LikeFilter(QStringView patternAsWritten);

    // False only when the text (in UTF-8, not folded) does not match the pattern.
    bool mayMatch(std::string_view utf8) const;

private:
    std::vector<std::string> m_spellings; // in UTF-8; none: no text can be ruled out
};

} // namespace text
