// Like against a matcher that tries every possibility, over many short patterns and texts.

#include "text/like.h"

#include <gmock/gmock.h>

#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t kMark = 0x3099;

bool isMarkAt(QStringView text, qsizetype at)
{
    return at < text.size() && text[at] == QChar(kMark);
}

qsizetype characterEnd(QStringView text, qsizetype at)
{
    do
        ++at;
    while (isMarkAt(text, at));
    return at;
}

// A pattern of plain characters that fold to themselves, %, _, [イ] and [!イ].
bool matches(QStringView pattern, QStringView text, qsizetype at)
{
    if (pattern.isEmpty())
        return at == text.size();
    const QChar sign = pattern.first();
    if (sign == u'%') {
        for (qsizetype next = at; next <= text.size(); ++next) {
            if (matches(pattern.sliced(1), text, next))
                return true;
        }
        return false;
    }
    if (sign == u'_' || sign == u'[') {
        if (at == text.size() || (at > 0 && isMarkAt(text, at)))
            return false;
        const bool negated = sign == u'[' && pattern[1] == u'!';
        if (sign == u'[' && (text[at] == u'イ') == negated)
            return false;
        const auto length = sign == u'_' ? 1 : pattern.indexOf(u']') + 1;
        return matches(pattern.sliced(length), text, characterEnd(text, at));
    }
    if (at == text.size() || text[at] != sign)
        return false;
    const QStringView rest = pattern.sliced(1);
    const bool runEnds = rest.isEmpty() || u"%_["_s.contains(rest.first());
    if (runEnds && isMarkAt(text, at + 1))
        return false;
    return matches(rest, text, at + 1);
}

TEST(Like, AgreesWithAMatcherThatTriesEverything)
{
    const QStringList signs = {u"%"_s,
                               u"%"_s,
                               u"_"_s,
                               u"[イ]"_s,
                               u"[!イ]"_s,
                               u"ア"_s,
                               u"イ"_s,
                               u"イ"_s + QChar(kMark),
                               QString(QChar(kMark))};
    const QStringList letters = {u"ア"_s, u"イ"_s, QString(QChar(kMark))};
    std::minstd_rand random(3);
    const auto join = [&random](const QStringList& parts, unsigned longest) {
        QString whole;
        for (auto length = random() % (longest + 1); length > 0; --length)
            whole += parts[static_cast<qsizetype>(random() % static_cast<unsigned>(parts.size()))];
        return whole;
    };
    int matching = 0;
    for (int i = 0; i < 60000; ++i) {
        const QString pattern = join(signs, 6);
        const QString text = join(letters, 7);
        const bool expected = matches(pattern, text, 0);
        ASSERT_EQ(text::LikePattern(pattern).matches(text), expected)
            << pattern.toStdString() << " : " << text.toStdString();
        matching += expected ? 1 : 0;
    }
    EXPECT_GT(matching, 5000); // enough of both kinds to mean something
}

} // namespace
