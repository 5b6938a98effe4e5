#pragma once

#include "text/like_steps.h"

#include <QString>
#include <QStringView>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace text {

// What every matching text begins with, folded; made for index bounds, so it may take in more.
// Either `literal` is not empty, or the first code point lies from `lo` to `hi`.
struct LikePrefix {
    QString literal;
    char32_t lo = 0;
    char32_t hi = 0;
    bool whole = false; // the pattern is the literal and nothing else: Like means equality
};

// What a pattern asks for that looks at the first character alone: one bracket and % behind it.
struct LikeFirst {
    std::vector<std::pair<char32_t, char32_t>> ranges; // of folded base characters, both ends in
    bool negated = false;                              // any character but these
};

// A pattern of the Like operator, prepared once and matched against many texts.
//
//   %        any run of characters, also none, also line ends
//   _        one character
//   [abc]    one of these characters       [a-z]  one from a to z       [!a-z]  one that is not
//   []       nothing (the empty text)      [!]    an exclamation mark
//   others   themselves, among them * ? # and a ] that closes nothing; [[] [%] [_] stand for [ % _
//
// These signs are recognised in the pattern as it is written, so their full-width forms are plain
// characters. What stands between them is folded, and so is the text. One character is a base
// character with the marks that follow it (see isMark).
//  - Brackets compare base characters by folded code point and let any mark follow: か, が and ｶﾞ
//    all match [ｶ], and [が-ご] is [か-こ]. What folds to several base characters (㈱) counts as
//    the first of them. A hyphen first, last or after a range is a plain one.
//  - A run of plain characters never ends just before a mark: カ% does not match ガ.
// A bracket that is not closed or a range that runs backwards makes the pattern invalid; it then
// matches nothing. Matching takes time in proportion to text times longest run at worst.
class LikePattern {
public:
    explicit LikePattern(QStringView patternAsWritten);

    bool valid() const { return m_error.isEmpty(); }
    // Why the pattern is invalid, for the user; empty when it is valid.
    const QString& error() const { return m_error; }

    bool matches(QStringView text) const;
    // For a text that is folded already (fold.h), such as several fields folded one after another.
    bool matchesFolded(std::u16string_view folded) const;

    std::optional<LikePrefix> prefix() const;
    // Nothing when the pattern asks for more, or is invalid.
    std::optional<LikeFirst> firstOnly() const;
    // True for % alone (or several of them).
    bool matchesEverything() const;

private:
    std::vector<like::Segment> m_segments;
    QString m_error;
};

} // namespace text
