#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>
#include <optional>
#include <string>
#include <string_view>

// The order of texts, as keys whose byte order (memcmp) is the order. A key is made from the folded
// text alone: first the Japanese order that takes small and large kana, prolonged vowels and the
// vowel they stand for as nearly equal, then the folded text by code point. Keys are equal exactly
// when the texts fold alike. They may hold zero bytes.
namespace text {

QByteArray sortKey(QStringView text);

// Appends the key of a UTF-8 text to a buffer that the caller reuses.
void appendSortKey(std::string_view utf8, std::string& out);

// Names everything outside this program that keys depend on (collator and Unicode data). Kept in
// data files: stored keys of another version don't compare with today's.
QString collatorVersion();

// All keys k with lower <= k < upper, by bytes.
struct KeyRange {
    QByteArray lower;
    QByteArray upper;
};

// Bounds for the keys of all texts whose folded form begins with a code point from `lo` to `hi`.
// The range may take in other texts too, but never leaves out one of those. Nothing when there is
// no such bound (characters that the order ignores) or the range is too wide to be worth one.
std::optional<KeyRange> firstCharRange(char32_t lo, char32_t hi);

// All folded texts t with lower <= t < upper, by code point (as UTF-8: by bytes). An empty `upper`
// means that there is no upper bound.
struct FoldRange {
    QString lower;
    QString upper;
};

// Bounds for folded texts that begin with `prefix` (folded; empty gives everything).
FoldRange foldRange(QStringView prefix);

// Bounds for folded texts that begin with a code point from `lo` to `hi`.
FoldRange foldRange(char32_t lo, char32_t hi);

} // namespace text
