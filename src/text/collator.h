#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unicode/ucol.h>

// What keys need to know of the collator; for collate.cpp alone.
namespace text {

// Appends the collation weights of a folded text, without a terminator; none of the bytes is zero.
// `strength` is UCOL_PRIMARY or UCOL_SECONDARY.
void appendWeights(std::u16string_view folded, UCollationStrength strength, std::string& out);

// All weights w with lower <= w < upper, by bytes.
struct WeightBounds {
    std::string lower;
    std::string upper;
};

WeightBounds united(const WeightBounds& a, const WeightBounds& b);

// Bounds for the weights of all folded texts that begin with this code point; nothing when what
// follows alone decides their place.
std::optional<WeightBounds> boundsOfTextsBeginningWith(char32_t folded);

} // namespace text
