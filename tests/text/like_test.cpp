#include "text/like.h"

#include <gmock/gmock.h>

#include <chrono>

using namespace Qt::StringLiterals;
using text::LikePattern;

namespace {

struct Case {
    QString pattern;
    QStringList matching;
    QStringList others;
};

void check(const Case& row)
{
    const LikePattern pattern(row.pattern);
    ASSERT_TRUE(pattern.valid()) << row.pattern.toStdString();
    for (const QString& text : row.matching)
        EXPECT_TRUE(pattern.matches(text))
            << row.pattern.toStdString() << " : " << text.toStdString();
    for (const QString& text : row.others)
        EXPECT_FALSE(pattern.matches(text))
            << row.pattern.toStdString() << " : " << text.toStdString();
}

// How the signs work together is told by the matcher that tries everything (like_reference_test).
TEST(Like, MatchesTheWholeText)
{
    const Case table[] = {
        {u""_s, {u""_s}, {u"a"_s}},
        {u"%"_s, {u""_s, u"ガ"_s, u"一行目\r\n二行目"_s}, {}},
        {u"_"_s,
         {u"a"_s, u"ガ"_s, u"ｶﾞ"_s, u"𠮷"_s, u"é"_s, u"e\u0301"_s, u"한"_s, u"\u3099"_s},
         {u""_s, u"ab"_s, u"ガガ"_s}},
        {u"__"_s, {u"ガギ"_s, u"ｶﾞｷﾞ"_s}, {u"ガ"_s, u"ｶﾞ"_s}},
        {u"abc"_s, {u"abc"_s, u"ABC"_s, u"ａｂｃ"_s}, {u"ab"_s, u"abcd"_s, u"xabc"_s}},
        {u"a%c"_s, {u"ac"_s, u"abc"_s, u"acbc"_s, u"a\r\nc"_s}, {u"acb"_s, u"a"_s, u"c"_s}},
        {u"2004/02%"_s, {u"2004/02/29(日)"_s, u"２００４/02/01"_s}, {u"2004/12/02"_s}},
        {u"%〜%"_s, {u"10時～12時"_s, u"10時~12時"_s}, {u"10時-12時"_s}},
    };
    for (const auto& row : table)
        check(row);
}

TEST(Like, TakesVoicedMarksWithTheirKana)
{
    const Case table[] = {
        {u"%カ%"_s,
         {u"アカイ"_s, u"ｱｶｲ"_s, u"あか"_s, u"ガカ"_s},
         {u"ガ"_s, u"ｶﾞ"_s, u"アガイ"_s, u"か゛"_s}},
        {u"%ガ%"_s, {u"ｶﾞ"_s, u"あがり"_s, u"カガ"_s}, {u"カ"_s, u"キ"_s}},
        {u"%ハ"_s, {u"バハ"_s}, {u"バ"_s, u"ﾊﾟ"_s}},
        {u"%e%"_s, {u"the"_s}, {u"é"_s, u"e\u0301"_s}},
    };
    for (const auto& row : table)
        check(row);
}

TEST(Like, ComparesBracketsByBaseCharacter)
{
    const Case table[] = {
        {u"[ｶ]%"_s, {u"か"_s, u"が"_s, u"ｶﾞ"_s, u"カキ"_s, u"ガ行"_s}, {u"き"_s, u""_s, u"アカ"_s}},
        {u"[ﾜ-ﾝ]%"_s, {u"ヲ"_s, u"わ"_s, u"ん"_s, u"ヰ"_s, u"ヱ"_s}, {u"ロ"_s, u"ー"_s, u"ヵ"_s}},
        {u"[ﾀ-ﾄ]%"_s, {u"ッ"_s, u"ヅ"_s, u"だ"_s}, {u"ソ"_s, u"ナ"_s}},
        {u"[!ｱ-ｵ]%"_s, {u"カ"_s, u"ァ"_s, u"A"_s, u"亜"_s}, {u"ヴ"_s, u"あ"_s, u""_s}},
        {u"%[!ｶ]"_s, {u"カキ"_s, u"ガギ"_s}, {u"ガ"_s, u"キカ"_s, u"ｷｶﾞ"_s}},
        {u"[が-ご]%"_s, {u"か"_s, u"コ"_s, u"ｹﾞ"_s}, {u"サ"_s}},
        {u"[ｶﾞ-ｺﾞ]%"_s, {u"か"_s, u"コ"_s, u"ｹﾞ"_s}, {u"サ"_s, u"-"_s}},
        {u"[ｶﾞ]"_s, {u"カ"_s, u"ガ"_s}, {u"\u3099"_s, u"カカ"_s}},
        {u"[㈱]"_s, {u"("_s}, {u"株"_s}},
        {u"[abc]"_s, {u"a"_s, u"Ｂ"_s, u"c"_s}, {u"d"_s, u""_s, u"ab"_s}},
        {u"[a-cx-z]"_s, {u"b"_s, u"Y"_s}, {u"d"_s, u"-"_s}},
        {u"[-a]"_s, {u"-"_s, u"a"_s, u"－"_s}, {u"b"_s}},
        {u"[a-]"_s, {u"-"_s, u"a"_s}, {u"b"_s}},
        {u"[!-a]"_s, {u"b"_s}, {u"-"_s, u"a"_s}},
        {u"[a-c-e]"_s, {u"b"_s, u"-"_s, u"e"_s}, {u"d"_s}},
        {u"[a－c]"_s, {u"a"_s, u"-"_s, u"c"_s}, {u"b"_s}},
        {u"[𠮷-𠮸]"_s, {u"𠮷"_s}, {u"吉"_s, u"𠮹"_s}},
        {u"a[]b"_s, {u"ab"_s}, {u"a[]b"_s, u"axb"_s}},
        {u"[!]"_s, {u"!"_s}, {u"a"_s, u""_s}},
        {u"[a!]"_s, {u"!"_s, u"a"_s}, {u"b"_s}},
        {u"1カ[ｶ-ｺ]"_s, {u"1カガ"_s}, {u"1ガガ"_s}},
    };
    for (const auto& row : table)
        check(row);
}

TEST(Like, ReadsSignsAsTheyAreWritten)
{
    const Case table[] = {
        {u"[%]"_s, {u"%"_s, u"％"_s}, {u"a"_s, u""_s}},
        {u"100[%]%"_s, {u"100%引き"_s}, {u"100円"_s}},
        {u"[_]"_s, {u"_"_s}, {u"a"_s}},
        {u"[[]"_s, {u"["_s, u"［"_s}, {u"]"_s}},
        {u"]"_s, {u"]"_s}, {u""_s}},
        {u"a]b"_s, {u"a]b"_s}, {u"ab"_s}},
        {u"％"_s, {u"%"_s, u"％"_s}, {u"a"_s, u""_s}},
        {u"＿"_s, {u"_"_s}, {u"a"_s}},
        {u"［a］"_s, {u"[a]"_s}, {u"a"_s}},
        {u"*"_s, {u"*"_s}, {u"a"_s, u""_s}},
        {u"a?#"_s, {u"a?#"_s}, {u"ab1"_s}},
        {u"it's"_s, {u"IT'S"_s}, {}},
    };
    for (const auto& row : table)
        check(row);
}

TEST(Like, RefusesBrokenPatterns)
{
    for (const QString& pattern : {u"[a"_s, u"a%["_s, u"[z-a]"_s, u"[ﾝ-ｱ]"_s, u"x[a--]%"_s}) {
        const LikePattern broken(pattern);
        EXPECT_FALSE(broken.valid()) << pattern.toStdString();
        EXPECT_FALSE(broken.error().isEmpty());
        EXPECT_FALSE(broken.matches(pattern));
        EXPECT_FALSE(broken.matchesEverything());
        EXPECT_FALSE(broken.prefix());
    }
}

TEST(Like, TellsThePlannerHowMatchesBegin)
{
    const struct {
        QString pattern;
        QString literal;
        char32_t lo;
        char32_t hi;
        bool whole;
    } table[] = {
        {u"2004/02%"_s, u"2004/02"_s, 0, 0, false},
        {u"ｶﾞ_"_s, u"カ\u3099"_s, 0, 0, false},
        {u"続行"_s, u"続行"_s, 0, 0, true},
        {u"a[]%b"_s, u"A"_s, 0, 0, false},
        {u"[か-こ]%"_s, QString(), U'カ', U'コ', false},
        {u"[ｶ]%"_s, QString(), U'カ', U'カ', false},
        {u"[xa-c]%"_s, QString(), U'A', U'X', false},
    };
    for (const auto& row : table) {
        const auto prefix = LikePattern(row.pattern).prefix();
        ASSERT_TRUE(prefix) << row.pattern.toStdString();
        EXPECT_EQ(prefix->literal, row.literal);
        EXPECT_EQ(prefix->lo, row.lo);
        EXPECT_EQ(prefix->hi, row.hi);
        EXPECT_EQ(prefix->whole, row.whole) << row.pattern.toStdString();
    }
    for (const QString& pattern : {u"%a"_s, u"_a"_s, u"[!a]%"_s, u"%"_s})
        EXPECT_FALSE(LikePattern(pattern).prefix()) << pattern.toStdString();
    const auto first = LikePattern(u"[!か-こA]%").firstOnly();
    ASSERT_TRUE(first);
    EXPECT_TRUE(first->negated);
    EXPECT_THAT(first->ranges,
                testing::ElementsAre(testing::Pair(U'カ', U'コ'), testing::Pair(U'A', U'A')));
    for (const QString& pattern :
         {u"[a]"_s, u"[a]_%"_s, u"[a]%b"_s, u"a%"_s, u"%[a]%"_s, u"[z-a]%"_s})
        EXPECT_FALSE(LikePattern(pattern).firstOnly()) << pattern.toStdString();
    EXPECT_TRUE(LikePattern(u"%").matchesEverything());
    EXPECT_TRUE(LikePattern(u"%%%").matchesEverything());
    for (const QString& pattern : {u""_s, u"%_%"_s, u"%a%"_s, u"_"_s})
        EXPECT_FALSE(LikePattern(pattern).matchesEverything()) << pattern.toStdString();
}

TEST(Like, FindsLiteralsOfAnyLengthAtAnyPlace)
{
    const QString haystack = u"ｱｲｳｴｵかがきくけこabcabdabc"_s + QString(400, u'x') + u"末尾"_s;
    for (qsizetype length : {1, 2, 3, 7, 260, 300}) {
        for (qsizetype at = 0; at + length <= haystack.size(); ++at) {
            const QString part = haystack.mid(at, length);
            ASSERT_TRUE(LikePattern(u'%' + part + u'%').matches(haystack)) << part.toStdString();
            ASSERT_FALSE(LikePattern(u'%' + part + u"無%"_s).matches(haystack));
        }
    }
}

TEST(Like, StaysQuickWithHostilePatterns)
{
    const QString text(200'000, u'a');
    const QString marks = u'カ' + QString(200'000, QChar(0x3099));
    QString often;
    for (int i = 0; i < 2000; ++i)
        often += u"a%"_s;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(LikePattern(often).matches(text));
    EXPECT_FALSE(LikePattern(often + u'b').matches(text));
    EXPECT_FALSE(LikePattern(u'%' + often + u"b%"_s).matches(text));
    EXPECT_FALSE(LikePattern(u"%_a_a_a_a_a_a%_b%"_s).matches(text));
    EXPECT_FALSE(LikePattern(u'%' + QString(500, u'a') + u"b%"_s).matches(text));
    EXPECT_FALSE(LikePattern(u"%_%_%_%"_s).matches(marks));
    EXPECT_FALSE(LikePattern(u"%[!x]%[!x]"_s).matches(marks));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

} // namespace
