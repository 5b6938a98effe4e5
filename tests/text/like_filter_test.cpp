#include "text/like_filter.h"

#include "text/fold.h"
#include "text/like.h"

#include <gtest/gtest.h>

#include <map>

using namespace Qt::StringLiterals;

namespace {

bool mayMatch(const QString& pattern, const QString& text)
{
    return text::LikeFilter(pattern, 0).mayMatch(text.toStdString());
}

// Every character that folds to a kanji, among them compatibility ideographs, radicals and signs
// such as ㍻ and ㊗, is found by that kanji.
TEST(LikeFilter, RulesOutNoSpellingOfAKanji)
{
    int others = 0;
    for (char32_t c = 0; c <= 0x2FA1F; ++c) {
        const QString spelling = QStringView(QChar::fromUcs4(c)).toString();
        const QString folded = text::fold(spelling);
        if (folded == spelling || folded[0] < u'一' || folded[0] > QChar(0x9FFF))
            continue;
        ++others;
        const QString pattern = u'%' + folded + u'%';
        ASSERT_TRUE(text::LikePattern(pattern).matches(spelling)) << spelling.toStdString();
        ASSERT_TRUE(mayMatch(pattern, spelling)) << spelling.toStdString();
    }
    EXPECT_GT(others, 500);
}

// The same for kana, letters, digits and signs, of which the pattern may hold several.
TEST(LikeFilter, RulesOutNoSpellingOfOtherCharacters)
{
    std::map<QString, QStringList> spellings;
    for (char32_t c = 0x20; c <= 0xFFFF; ++c) {
        if (QChar::isSurrogate(c))
            continue;
        const QString spelling = QStringView(QChar::fromUcs4(c)).toString();
        const QString folded = text::fold(spelling);
        if (folded != spelling && folded[0] < u'一' && !u"%_[]"_s.contains(folded[0]))
            spellings[folded].append(spelling);
    }
    ASSERT_GT(spellings.size(), 500U);
    for (const auto& [folded, written] : spellings) {
        text::LikeFilter filter(u'%' + folded + u'%', 0);
        for (const QString& each : written)
            ASSERT_TRUE(filter.mayMatch((u"電話"_s + each).toStdString())) << each.toStdString();
    }
}

TEST(LikeFilter, LooksAtLiteralsOutsideBracketsOnly)
{
    struct Case {
        QString pattern;
        QString text;
        bool expected;
    };
    const Case cases[] = {
        {u"%東京%"_s, u"大阪府大阪市"_s, false},
        {u"%東京%"_s, u"東大阪市京町"_s, true},
        {u"%語"_s, u"日本語の"_s, true},
        {u"%[東西]%"_s, u"南"_s, true},
        {u"%[東西]語%"_s, u"東"_s, false},
        {u"%ｻｰﾋﾞｽ%"_s, u"電機"_s, false},
        {u"%ｻｰﾋﾞｽ%"_s, u"さーひす"_s, false},
        {u"%ｻｰﾋﾞｽ%"_s, u"総合サービス"_s, true},
        {u"%abcdefghijk%"_s, u"HGFEDCBA"_s, true}, // only the first eight are looked for
        {u"%abc%"_s, u"ab"_s, false},
        {u"%abc%"_s, u"𠮷"_s, true},
        {u"%[a-c]%"_s, u"x"_s, true},
        {u"%"_s, u""_s, true},
        {u"東[%"_s, u"西"_s, true},
        {u"_東"_s, u"西"_s, false},
    };
    for (const Case& each : cases)
        EXPECT_EQ(mayMatch(each.pattern, each.text), each.expected) << each.pattern.toStdString();
}

} // namespace
