#include "text/like_steps.h"

#include "text/fold.h"
#include "text/utf16.h"

#include <QList>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace text::like {
namespace {

const QString kNotClosed = u"Like の文字パターンの [ が閉じられていません。"_s;
const QString kBackwards = u"Like の文字パターンの範囲が逆順です："_s;

// A character between brackets.
struct Item {
    char32_t base; // the first base character that it folds to
    bool writtenHyphen;
};

// A mark belongs to the character before it and adds no item.
std::vector<Item> bracketItems(QStringView content)
{
    std::vector<Item> items;
    for (const char32_t written : content.toUcs4()) {
        const auto folded = fold(toQString(written)).toUcs4();
        if (items.empty() || !isMark(folded.first()))
            items.push_back({folded.first(), written == U'-'});
    }
    return items;
}

class Parser {
public:
    explicit Parser(QStringView pattern) : m_rest(pattern) { m_result.segments.emplace_back(); }

    Parsed parse()
    {
        while (!m_rest.isEmpty() && m_result.error.isEmpty()) {
            const QChar sign = m_rest.first();
            if (sign == u'%') {
                m_rest = m_rest.sliced(1);
                endLiteral();
                m_result.segments.emplace_back();
            } else if (sign == u'_') {
                m_rest = m_rest.sliced(1);
                endLiteral();
                m_result.segments.back().emplace_back();
            } else if (sign == u'[') {
                parseBracket();
            } else {
                parsePlain();
            }
        }
        endLiteral();
        return std::move(m_result);
    }

private:
    void parsePlain()
    {
        const auto* const end = std::find_if(m_rest.begin(), m_rest.end(), [](QChar c) {
            return c == u'%' || c == u'_' || c == u'[';
        });
        const auto length = end - m_rest.begin();
        appendFolded(m_rest.first(length), m_literal);
        m_rest = m_rest.sliced(length);
    }

    void parseBracket()
    {
        const auto close = m_rest.indexOf(u']');
        if (close < 0) {
            m_result.error = kNotClosed;
            return;
        }
        auto content = m_rest.sliced(1, close - 1);
        m_rest = m_rest.sliced(close + 1);
        if (content.size() == 1 && content.first() == u'!') {
            m_literal += u'!';
        } else if (!content.isEmpty()) {
            endLiteral();
            addBracket(content);
        }
    }

    void addBracket(QStringView content)
    {
        Step step;
        step.kind = StepKind::Bracket;
        step.negated = content.first() == u'!';
        const auto items = bracketItems(content.sliced(step.negated ? 1 : 0));
        for (std::size_t i = 0; i < items.size(); ++i) {
            CodePointRange range{items[i].base, items[i].base};
            if (i + 2 < items.size() && items[i + 1].writtenHyphen) {
                i += 2;
                range.hi = items[i].base;
            }
            if (range.lo > range.hi)
                m_result.error = kBackwards + u'[' + content.toString() + u']';
            step.ranges.push_back(range);
        }
        m_result.segments.back().push_back(std::move(step));
    }

    void endLiteral()
    {
        if (m_literal.empty())
            return;
        Step step;
        step.kind = StepKind::Literal;
        step.literal = Literal(std::move(m_literal));
        m_literal.clear();
        m_result.segments.back().push_back(std::move(step));
    }

    QStringView m_rest;
    std::u16string m_literal;
    Parsed m_result;
};

} // namespace

// The highest code point is likely the rarest in a text, kanji before kana before letters; marks
// are frequent.
Literal::Literal(std::u16string units) : m_units(std::move(units))
{
    for (std::size_t i = 1; i < m_units.size(); ++i) {
        if (m_units[i] > m_units[m_anchor] && !isMark(m_units[i]))
            m_anchor = i;
    }
}

std::size_t Literal::find(std::u16string_view text, std::size_t from) const
{
    const QStringView view(text); // its search for one unit looks at many at a time
    const QChar anchor(m_units[m_anchor]);
    while (from + m_units.size() <= text.size()) {
        const std::size_t first = from + m_anchor;
        const auto hit = view.indexOf(anchor, static_cast<qsizetype>(first));
        if (hit < 0)
            return kNotFound;
        const std::size_t start = static_cast<std::size_t>(hit) - m_anchor;
        if (text.compare(start, m_units.size(), m_units) == 0)
            return start;
        from = start + 1;
    }
    return kNotFound;
}

Parsed parse(QStringView patternAsWritten)
{
    return Parser(patternAsWritten).parse();
}

} // namespace text::like
