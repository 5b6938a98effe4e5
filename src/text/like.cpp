#include "text/like.h"

#include "text/fold.h"
#include "text/utf16.h"

#include <algorithm>
#include <unicode/utf16.h>

namespace text {
namespace {

using like::CodePointRange;
using like::Segment;
using like::Step;
using like::StepKind;

constexpr std::size_t kNoMatch = std::u16string_view::npos;

bool isMarkAt(std::u16string_view text, std::size_t at)
{
    return at < text.size() && isMark(codePointAt(text, at));
}

// Where the character that begins at `at` ends: behind its base and all its marks.
std::size_t characterEnd(std::u16string_view text, std::size_t at)
{
    do
        U16_FWD_1(text.data(), at, text.size());
    while (isMarkAt(text, at));
    return at;
}

// Where the character that ends at `end` begins, not before `floor`.
std::size_t characterStart(std::u16string_view text, std::size_t end, std::size_t floor)
{
    do
        U16_BACK_1(text.data(), floor, end);
    while (end > floor && isMarkAt(text, end));
    return end;
}

bool takes(const Step& step, char32_t base)
{
    if (step.kind == StepKind::AnyOne)
        return true;
    const bool listed =
        std::any_of(step.ranges.begin(), step.ranges.end(),
                    [base](CodePointRange r) { return base >= r.lo && base <= r.hi; });
    return listed != step.negated;
}

// Matches at the one place `at`; gives the end.
std::size_t matchFrom(const Segment& segment, std::u16string_view text, std::size_t at)
{
    for (const auto& step : segment) {
        if (step.kind == StepKind::Literal) {
            const auto& literal = step.literal.units();
            if (text.compare(at, literal.size(), literal) != 0)
                return kNoMatch;
            at += literal.size();
            if (isMarkAt(text, at))
                return kNoMatch;
        } else {
            if (at == text.size() || !takes(step, codePointAt(text, at)))
                return kNoMatch;
            at = characterEnd(text, at);
        }
    }
    return at;
}

// Matches so that it ends with the text and begins at `floor` or behind it. From a given end there
// is but one way back.
bool matchesEnd(const Segment& segment, std::u16string_view text, std::size_t floor)
{
    std::size_t end = text.size();
    for (std::size_t i = segment.size(); i > 0; --i) {
        const Step& step = segment[i - 1];
        if (isMarkAt(text, end))
            return false;
        if (step.kind == StepKind::Literal) {
            const auto& literal = step.literal.units();
            if (end - floor < literal.size())
                return false;
            end -= literal.size();
            if (text.compare(end, literal.size(), literal) != 0)
                return false;
        } else {
            if (end == floor)
                return false;
            end = characterStart(text, end, floor);
            if (!takes(step, codePointAt(text, end)))
                return false;
        }
    }
    return true;
}

// The end of the first match from `from` on. An earlier match never ends later than a later one,
// so that the first leaves most to the segments behind it and nothing needs to be tried again.
std::size_t findFrom(const Segment& segment, std::u16string_view text, std::size_t from)
{
    if (segment.empty())
        return from;
    const auto& first = segment.front();
    if (first.kind == StepKind::Literal) {
        std::size_t at = first.literal.find(text, from);
        while (at != kNoMatch) {
            if (const auto end = matchFrom(segment, text, at); end != kNoMatch)
                return end;
            at = first.literal.find(text, at + 1);
        }
        return kNoMatch;
    }
    for (std::size_t at = from; at < text.size(); at = characterEnd(text, at)) {
        if (const auto end = matchFrom(segment, text, at); end != kNoMatch)
            return end;
    }
    return kNoMatch;
}

} // namespace

LikePattern::LikePattern(QStringView patternAsWritten)
{
    auto parsed = like::parse(patternAsWritten);
    m_segments = std::move(parsed.segments);
    m_error = std::move(parsed.error);
}

bool LikePattern::matches(QStringView text) const
{
    thread_local std::u16string folded;
    folded.clear();
    appendFolded(text, folded);
    return matchesFolded(folded);
}

bool LikePattern::matchesFolded(std::u16string_view folded) const
{
    if (!valid())
        return false;
    std::size_t at = matchFrom(m_segments.front(), folded, 0);
    if (m_segments.size() == 1)
        return at == folded.size();
    for (std::size_t i = 1; i + 1 < m_segments.size() && at != kNoMatch; ++i)
        at = findFrom(m_segments[i], folded, at);
    return at != kNoMatch && matchesEnd(m_segments.back(), folded, at);
}

std::optional<LikePrefix> LikePattern::prefix() const
{
    if (!valid() || m_segments.front().empty())
        return std::nullopt;
    const auto& segment = m_segments.front();
    const auto& first = segment.front();
    LikePrefix prefix;
    if (first.kind == StepKind::Literal) {
        prefix.literal = toQString(first.literal.units());
        prefix.whole = m_segments.size() == 1 && segment.size() == 1;
        return prefix;
    }
    if (first.kind == StepKind::AnyOne || first.negated)
        return std::nullopt;
    prefix.lo = first.ranges.front().lo;
    for (const auto& range : first.ranges) {
        prefix.lo = std::min(prefix.lo, range.lo);
        prefix.hi = std::max(prefix.hi, range.hi);
    }
    return prefix;
}

std::optional<LikeFirst> LikePattern::firstOnly() const
{
    const auto rest = m_segments.begin() + 1;
    if (!valid() || m_segments.size() < 2 || m_segments.front().size() != 1
        || m_segments.front().front().kind != StepKind::Bracket
        || !std::all_of(rest, m_segments.end(), [](const Segment& s) { return s.empty(); }))
        return std::nullopt;
    LikeFirst first;
    first.negated = m_segments.front().front().negated;
    for (const auto& range : m_segments.front().front().ranges)
        first.ranges.emplace_back(range.lo, range.hi);
    return first;
}

bool LikePattern::matchesEverything() const
{
    return valid() && m_segments.size() > 1
        && std::all_of(m_segments.begin(), m_segments.end(),
                       [](const Segment& s) { return s.empty(); });
}

} // namespace text
