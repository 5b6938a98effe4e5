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

std::u16string kanjiOf(const like::Parsed& pattern)
{
    std::u16string kanji;
    for (const like::Segment& segment : pattern.segments) {
        for (const like::Step& step : segment) {
            if (step.kind != like::StepKind::Literal)
                continue;
            std::copy_if(step.literal.units().begin(), step.literal.units().end(),
                         std::back_inserter(kanji),
                         [](char16_t unit) { return unit >= kFirstKanji && unit <= kLastKanji; });
        }
    }
    return kanji;
}

} // namespace

LikeFilter::LikeFilter(QStringView patternAsWritten)
{
    const like::Parsed pattern = like::parse(patternAsWritten);
    if (!pattern.error.isEmpty())
        return;
    QList<char32_t> fewest;
    for (const char16_t unit : kanjiOf(pattern)) {
        const QList<char32_t> spellings = FoldTable::instance().spellings(unit);
        if (fewest.isEmpty() || spellings.size() < fewest.size())
            fewest = spellings;
    }
    if (fewest.size() > kMostSpellings)
        return;
    for (const char32_t spelling : fewest)
        m_spellings.push_back(toQString(spelling).toStdString());
}

bool LikeFilter::mayMatch(std::string_view utf8) const
{
    return m_spellings.empty()
        || std::any_of(m_spellings.begin(), m_spellings.end(), [utf8](const std::string& each) {
               return memmem(utf8.data(), utf8.size(), each.data(), each.size()) != nullptr;
           });
}

} // namespace text
