#include "text/collate.h"

#include "text/collator.h"
#include "text/fold.h"
#include "text/utf16.h"

#include <QList>
#include <unicode/uchar.h>

namespace text {
namespace {

// Stands between the two parts of a key; lower than any byte of the first part.
constexpr char kSeparator = '\0';

void appendKeyOfFolded(std::u16string_view folded, std::string& out)
{
    appendWeights(folded, UCOL_SECONDARY, out);
    out += kSeparator;
    appendUtf8(folded, out);
}

QByteArray toByteArray(const std::string& text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

// The least text above all texts that begin with `c`; empty when there is none.
QString after(char32_t c)
{
    constexpr char32_t kBeforeSurrogates = 0xD7FF;
    constexpr char32_t kBehindSurrogates = 0xE000;
    if (c >= UCHAR_MAX_VALUE)
        return {};
    return toQString(c == kBeforeSurrogates ? kBehindSurrogates : c + 1);
}

} // namespace

QByteArray sortKey(QStringView text)
{
    thread_local std::u16string folded;
    thread_local std::string key;
    folded.clear();
    key.clear();
    appendFolded(text, folded);
    appendKeyOfFolded(folded, key);
    return toByteArray(key);
}

void appendSortKey(std::string_view utf8, std::string& out)
{
    thread_local std::u16string folded;
    folded.clear();
    appendFolded(utf8, folded);
    appendKeyOfFolded(folded, out);
}

std::optional<KeyRange> firstCharRange(char32_t lo, char32_t hi)
{
    constexpr char32_t kWidest = 2048;
    if (lo > hi || hi > UCHAR_MAX_VALUE || hi - lo >= kWidest)
        return std::nullopt;
    std::optional<WeightBounds> all;
    for (char32_t c = lo; c <= hi; ++c) {
        if (fold(toQString(c)) != toQString(c))
            continue; // no folded text holds it
        const auto bounds = boundsOfTextsBeginningWith(c);
        if (!bounds)
            return std::nullopt;
        all = all ? united(*all, *bounds) : *bounds;
    }
    if (!all)
        return std::nullopt;
    return KeyRange{toByteArray(all->lower), toByteArray(all->upper)};
}

FoldRange foldRange(QStringView prefix)
{
    // The last code point that has one above it goes up by one, and what stands behind falls away.
    auto codePoints = prefix.toUcs4();
    qsizetype end = prefix.size();
    while (!codePoints.isEmpty()) {
        const char32_t last = codePoints.takeLast();
        end -= last > 0xFFFF ? 2 : 1;
        if (const auto upper = after(last); !upper.isEmpty())
            return {prefix.toString(), prefix.first(end).toString() + upper};
    }
    return {prefix.toString(), {}};
}

FoldRange foldRange(char32_t lo, char32_t hi)
{
    return {toQString(lo), after(hi)};
}

} // namespace text
