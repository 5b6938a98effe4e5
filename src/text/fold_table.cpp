#include "text/fold_table.h"

#include "text/utf16.h"

#include <algorithm>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>

namespace text {
namespace {

struct Block {
    char32_t first;
    char32_t last;
};

// Above U+FFFF only these hold anything that folds.
constexpr Block kSupplementary[] = {{0x10000, 0x1FFFF}, {0x2F800, 0x2FA1F}};

struct Pair {
    char32_t from;
    char32_t to;
};

// Kept apart by Unicode, but one and the same to whoever reads or types them. The dashes and waves
// are those that conversion to code page 932 and back confuses.
constexpr Pair kSame[] = {
    {0x301C, U'~'},     // wave dash; the full-width tilde is decomposed to the plain one
    {0x2212, U'-'},     // minus sign; the full-width hyphen is decomposed to the plain one
    {0x2225, 0x2016},   // parallel to, double vertical line
    {0x2014, 0x2015},   // em dash, horizontal bar
    {0x309B, 0x3099},   // voiced mark standing alone
    {0x309C, 0x309A},   // semi-voiced mark standing alone
    {0x1B132, 0x1B155}, // small ko, hiragana to katakana
};

char32_t replaced(char32_t c)
{
    if ((c >= 0x3041 && c <= 0x3096) || c == 0x309D || c == 0x309E)
        return c + 0x60; // hiragana and their iteration marks
    if (c >= 0x1B150 && c <= 0x1B152)
        return c + 0x14; // small wi, we, wo
    const auto* same = std::find_if(std::begin(kSame), std::end(kSame),
                                    [c](const Pair& p) { return p.from == c; });
    return same == std::end(kSame) ? c : same->to;
}

const UNormalizer2* nfkdForm()
{
    UErrorCode status = U_ZERO_ERROR;
    static const UNormalizer2* const nfkd = unorm2_getNFKDInstance(&status);
    return nfkd;
}

void appendDecomposed(char32_t c, std::u16string& out)
{
    UErrorCode status = U_ZERO_ERROR;
    char16_t decomposition[32];
    const auto same = replaced(c);
    const int length = unorm2_getDecomposition(nfkdForm(), static_cast<UChar32>(same),
                                               decomposition, std::size(decomposition), &status);
    if (length < 0 || U_FAILURE(status))
        appendCodePoint(same, out);
    else
        out.append(decomposition, static_cast<std::size_t>(length));
}

std::u16string upper(const std::u16string& text)
{
    char16_t result[96];
    UErrorCode status = U_ZERO_ERROR;
    const int length = u_strToUpper(result, std::size(result), text.data(),
                                    static_cast<int>(text.size()), "", &status);
    return U_FAILURE(status) ? text : std::u16string(result, static_cast<std::size_t>(length));
}

// One character, folded until nothing changes any more: an upper case form may be decomposable, a
// decomposition may hold a dash or kana to be replaced.
std::u16string foldOne(char32_t c)
{
    std::u16string folded;
    appendCodePoint(isSurrogate(c) ? kReplacementCharacter : c, folded);
    for (bool changed = true; changed;) {
        std::u16string next;
        for (std::size_t i = 0; i < folded.size();)
            appendDecomposed(takeCodePoint(folded, i), next);
        next = upper(next);
        changed = next != folded;
        folded = std::move(next);
    }
    return folded;
}

// Sorts out at little cost the many characters that stay as they are.
bool foldsToItself(char32_t c)
{
    const auto code = static_cast<UChar32>(c);
    return !isSurrogate(c) && replaced(c) == c && unorm2_isInert(nfkdForm(), code)
        && !u_hasBinaryProperty(code, UCHAR_CHANGES_WHEN_UPPERCASED);
}

} // namespace

const FoldTable& FoldTable::instance()
{
    static const FoldTable table;
    return table;
}

FoldTable::FoldTable()
{
    for (char32_t c = 0; c <= 0xFFFF; ++c) {
        auto& entry = m_entries[c];
        entry = static_cast<std::uint32_t>(c);
        if (foldsToItself(c))
            continue;
        auto folded = foldOne(c);
        if (folded.size() > 2) {
            entry = kLong << 16 | static_cast<std::uint32_t>(m_longFolds.size());
            m_longFolds.push_back(std::move(folded));
        } else {
            entry = folded[0] | (folded.size() == 2 ? std::uint32_t{folded[1]} << 16 : 0);
        }
    }
    for (const auto& block : kSupplementary) {
        for (char32_t c = block.first; c <= block.last; ++c) {
            if (!foldsToItself(c))
                m_supplementary.emplace_back(c, foldOne(c));
        }
    }
}

std::u16string_view FoldTable::supplementary(char32_t codePoint) const
{
    const auto at = std::lower_bound(m_supplementary.begin(), m_supplementary.end(), codePoint,
                                     [](const auto& fold, char32_t c) { return fold.first < c; });
    if (at == m_supplementary.end() || at->first != codePoint)
        return {};
    return at->second;
}

QList<char32_t> FoldTable::spellings(char16_t unit) const
{
    QList<char32_t> found;
    const auto holds = [unit](std::u16string_view fold) {
        return fold.find(unit) != std::u16string_view::npos;
    };
    for (char32_t c = 0; c <= 0xFFFF; ++c) {
        const auto entry = m_entries[c];
        const bool isLong = entry >> 16 == kLong;
        if (isLong ? holds(longFold(entry)) : (entry & 0xFFFF) == unit || entry >> 16 == unit)
            found.append(c);
    }
    for (const auto& [c, fold] : m_supplementary) {
        if (holds(fold))
            found.append(c);
    }
    return found;
}

std::vector<std::uint8_t> FoldTable::holders(std::u16string_view units) const
{
    std::vector<std::uint8_t> bits(m_entries.size());
    for (std::size_t i = 0; i < units.size(); ++i)
        bits[units[i]] |= static_cast<std::uint8_t>(1U << i);
    bits[0] = 0; // an entry's empty half

    std::vector<std::uint8_t> held(m_entries.size());
    for (std::size_t c = 0; c < held.size(); ++c) {
        const std::uint32_t entry = m_entries[c];
        if (entry >> 16 != kLong) {
            held[c] = bits[entry & 0xFFFF] | bits[entry >> 16];
            continue;
        }
        for (const char16_t unit : longFold(entry))
            held[c] |= bits[unit];
    }
    return held;
}

} // namespace text
