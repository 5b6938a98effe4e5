#pragma once

#include <QString>
#include <QStringView>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// A Like pattern taken apart; for LikePattern alone.
namespace text::like {

// A run of folded plain characters, ready to be looked for.
class Literal {
public:
    static constexpr std::size_t kNotFound = std::u16string_view::npos;

    Literal() = default;
    explicit Literal(std::u16string units);

    const std::u16string& units() const { return m_units; }
    // Where it stands first in `text` from the place `from` on.
    std::size_t find(std::u16string_view text, std::size_t from) const;

private:
    std::u16string m_units;
    std::size_t m_anchor = 0; // the place of the unit that is looked for first
};

struct CodePointRange {
    char32_t lo = 0;
    char32_t hi = 0;
};

enum class StepKind : std::uint8_t { Literal, AnyOne, Bracket };

struct Step {
    StepKind kind = StepKind::AnyOne;
    Literal literal;
    std::vector<CodePointRange> ranges; // of a bracket: folded base characters
    bool negated = false;               // of a bracket
};

// What stands between two % signs; no two literals follow each other.
using Segment = std::vector<Step>;

struct Parsed {
    std::vector<Segment> segments; // one more than there are % signs
    QString error;                 // empty when the pattern is valid
};

Parsed parse(QStringView patternAsWritten);

} // namespace text::like
