#pragma once

#include <vector>

// Which characters a folded text may begin with. The kana index asks for them with brackets in
// Like; as ranges of code points they can be joined, cut and read off an index.
namespace storage::sql {

struct CodePointRange {
    char32_t first = 0;
    char32_t last = 0; // inclusive
    bool operator==(const CodePointRange&) const = default;
};

// In order, without overlaps, and never two that touch.
using FirstCharacters = std::vector<CodePointRange>;

// Ranges in any order brought into that form.
FirstCharacters normalized(std::vector<CodePointRange> ranges);
// All other characters.
FirstCharacters complement(const FirstCharacters& set);

} // namespace storage::sql
