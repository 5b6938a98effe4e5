#include "storage/sql/first_characters.h"

#include <algorithm>

namespace storage::sql {
namespace {

constexpr char32_t kLastCodePoint = 0x10FFFF;

} // namespace

FirstCharacters normalized(std::vector<CodePointRange> ranges)
{
    std::erase_if(ranges, [](const CodePointRange& r) { return r.first > r.last; });
    std::ranges::sort(ranges, {}, &CodePointRange::first);
    FirstCharacters result;
    for (const CodePointRange& range : ranges) {
        if (!result.empty() && range.first <= result.back().last + 1)
            result.back().last = std::max(result.back().last, range.last);
        else
            result.push_back(range);
    }
    return result;
}

FirstCharacters complement(const FirstCharacters& set)
{
    FirstCharacters result;
    char32_t next = 0;
    for (const CodePointRange& range : set) {
        if (range.first > next)
            result.push_back({next, range.first - 1});
        next = range.last + 1;
    }
    if (next <= kLastCodePoint)
        result.push_back({next, kLastCodePoint});
    return result;
}

} // namespace storage::sql
