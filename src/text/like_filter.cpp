#include "text/like_filter.h"

#include "text/fold_table.h"
#include "text/like_steps.h"
#include "text/utf16.h"

#include <algorithm>
#include <cstring>

namespace text {
namespace {

constexpr char16_t kFirstKanji = 0x4E00;
constexpr char16_t kLastKanji = 0x9FFF;
// With more than these to look for, folding the text is as fast.
constexpr qsizetype kMostSpellings = 4;

// As many as there are bits in an entry of the table.
constexpr std::size_t kMostUnits = 8;

// The pattern's literal characters, folded, each once.
std::u16string literalsOf(const like::Parsed& pattern)
{
    std::u16string units;
    for (const like::Segment& segment : pattern.segments) {
        for (const like::Step& step : segment) {
            if (step.kind != like::StepKind::Literal)
                continue;
            for (const char16_t unit : step.literal.units()) {
                if (!QChar::isSurrogate(unit) && units.find(unit) == std::u16string::npos)
                    units.push_back(unit);
            }
        }
    }
    return units;
}

bool isKanji(char16_t unit)
{
    return unit >= kFirstKanji && unit <= kLastKanji;
}

} // namespace

LikeFilter::LikeFilter(QStringView patternAsWritten, int patience) : m_patience(patience)
{
    const like::Parsed pattern = like::parse(patternAsWritten);
    if (!pattern.error.isEmpty())
        return;
    m_units = literalsOf(pattern);
    QList<char32_t> fewest;
    for (const char16_t unit : m_units) {
        if (!isKanji(unit))
            continue;
        const QList<char32_t> spellings = FoldTable::instance().spellings(unit);
        if (fewest.isEmpty() || spellings.size() < fewest.size())
            fewest = spellings;
    }
    if (fewest.size() <= kMostSpellings) {
        for (const char32_t spelling : fewest)
            m_spellings.push_back(toQString(spelling).toStdString());
    }
    m_units.resize(std::min(m_units.size(), kMostUnits));
}

bool LikeFilter::mayMatch(std::string_view utf8)
{
    if (!m_spellings.empty()) {
        return std::any_of(m_spellings.begin(), m_spellings.end(), [utf8](const std::string& each) {
            return memmem(utf8.data(), utf8.size(), each.data(), each.size()) != nullptr;
        });
    }
    if (m_units.empty() || --m_patience >= 0)
        return true;
    if (m_held.empty())
        m_held = FoldTable::instance().holders(m_units);
    return holdsAll(utf8);
}

bool LikeFilter::holdsAll(std::string_view utf8) const
{
    const unsigned all = (1U << m_units.size()) - 1;
    unsigned found = 0;
    const auto* at = reinterpret_cast<const unsigned char*>(utf8.data());
    const auto* const end = at + utf8.size();
    while (at < end && found != all) {
        const unsigned first = *at;
        if (first < 0x80) {
            found |= m_held[first];
            at += 1;
        } else if (first < 0xE0 && end - at >= 2) {
            found |= m_held[(first & 0x1F) << 6 | (at[1] & 0x3FU)];
            at += 2;
        } else if (first < 0xF0 && end - at >= 3) {
            found |= m_held[(first & 0x0F) << 12 | (at[1] & 0x3FU) << 6 | (at[2] & 0x3FU)];
            at += 3;
        } else {
            return true; // beyond the table, or no whole character
        }
    }
    return found == all;
}

} // namespace text
