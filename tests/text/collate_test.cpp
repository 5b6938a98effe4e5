#include "text/collate.h"
#include "text/fold.h"

#include <gmock/gmock.h>

#include <QSet>

#include <cstring>

using namespace Qt::StringLiterals;

namespace {

// As the engine compares them: unsigned bytes, then the length.
int compare(const QByteArray& a, const QByteArray& b)
{
    const auto common = static_cast<std::size_t>(qMin(a.size(), b.size()));
    const int order = std::memcmp(a.constData(), b.constData(), common);
    return order != 0 ? order : static_cast<int>(a.size() - b.size());
}

QString ofCodePoint(char32_t c)
{
    return QStringView(QChar::fromUcs4(c)).toString();
}

// Short texts that are awkward to put in order or begin with: all kana, letters, digits, marks,
// signs that the order ignores, scripts that reorder or contract, rare planes.
QStringList awkwardTexts()
{
    QStringList texts = {
        QString(),   u"ー"_s,           u"ヽ"_s,       u"ヾ"_s,     u"\u3099"_s,     u"\u309A"_s,
        u"\u200B"_s, u"\u00AD"_s,       u"\u0301"_s,   u"\u0327"_s, u"\u0001"_s,     u"\uFFFE"_s,
        u"\uFFFF"_s, u"・"_s,           u"ｰ"_s,        u"亜"_s,     u"龠"_s,         u"𠮷"_s,
        u"\u0E40"_s, u"\u0E01"_s,       u"\u0306"_s,   u"И"_s,      u"\u094D"_s,     u"한"_s,
        u"\u1161"_s, u"L·"_s,           u"😀"_s,        u"\u20DD"_s, u"\U000E0100"_s, u"\uFDD1A"_s,
        u"\uE000"_s, u"\u3099\u0301"_s, u"ー\u3099"_s, u"Ω"_s,      u"( "_s};
    texts += QString(QChar(0));
    for (char32_t c = 0x20; c < 0x7F; ++c)
        texts += ofCodePoint(c);
    for (char32_t c = 0x3041; c <= 0x30FF; ++c)
        texts += ofCodePoint(c);
    for (char32_t c = 0xFF61; c <= 0xFF9F; ++c)
        texts += ofCodePoint(c);
    return texts;
}

TEST(SortKey, OrdersAsAJapaneseReaderExpects)
{
    const QStringList ascending = {
        QString(), u"012"_s,      u"12"_s,       u"ABC"_s,    u"abd"_s,  u"ｂ"_s,
        u"あい"_s, u"ｱｵ"_s,       u"いぬ"_s,     u"カキ"_s,   u"がき"_s, u"かく"_s,
        u"ｷ"_s,    u"サアビス"_s, u"サービス"_s, u"サーフ"_s, u"はは"_s, u"はば"_s,
        u"はぱ"_s, u"ばは"_s,     u"ひ"_s,       u"ょ"_s,     u"よ"_s,   u"ヨウ"_s,
        u"わ"_s,   u"ヲ"_s,       u"ン"_s,       u"亜"_s,     u"一"_s,
    };
    for (qsizetype i = 1; i < ascending.size(); ++i) {
        EXPECT_LT(compare(text::sortKey(ascending[i - 1]), text::sortKey(ascending[i])), 0)
            << ascending[i - 1].toStdString() << " " << ascending[i].toStdString();
    }
}

TEST(SortKey, IsEqualExactlyWhenTextsFoldAlike)
{
    QStringList texts;
    const QStringList parts = awkwardTexts();
    for (const QString& part : parts)
        texts << part << u"ア"_s + part << part + u"ガ"_s;
    texts << u"ｻｰﾋﾞｽ"_s << u"サービス"_s << u"さーびす"_s << u"サアビス"_s << u"ｻｱﾋﾞｽ"_s;
    QHash<QString, QByteArray> byFold;
    QHash<QByteArray, QString> byKey;
    for (const QString& text : std::as_const(texts)) {
        const QString folded = text::fold(text);
        const QByteArray key = text::sortKey(text);
        ASSERT_EQ(byFold.value(folded, key), key) << text.toStdString();
        ASSERT_EQ(byKey.value(key, folded), folded) << text.toStdString();
        byFold[folded] = key;
        byKey[key] = folded;

        std::string appended = "x";
        text::appendSortKey(text.toStdString(), appended);
        ASSERT_EQ(QByteArray::fromStdString(appended), "x" + key);
    }
}

struct Range {
    QString lo;
    QString hi;
};

char32_t foldedBase(const QString& character)
{
    return text::fold(character).toUcs4().first();
}

const Range kIndexRanges[] = {
    {u"ｱ"_s, u"ｵ"_s}, {u"ｧ"_s, u"ｫ"_s},           {u"ｶ"_s, u"ｺ"_s},   {u"ｻ"_s, u"ｿ"_s},
    {u"ﾀ"_s, u"ﾄ"_s}, {u"ﾅ"_s, u"ﾉ"_s},           {u"ﾊ"_s, u"ﾎ"_s},   {u"ﾏ"_s, u"ﾓ"_s},
    {u"ﾔ"_s, u"ﾖ"_s}, {u"ﾗ"_s, u"ﾛ"_s},           {u"ﾜ"_s, u"ﾝ"_s},   {u"A"_s, u"C"_s},
    {u"D"_s, u"F"_s}, {u"Y"_s, u"Z"_s},           {u"A"_s, u"Z"_s},   {u"0"_s, u"9"_s},
    {u"ｶ"_s, u"ｶ"_s}, {u"ﾝ"_s, u"ﾝ"_s},           {u"0"_s, u"Z"_s},   {u"ァ"_s, u"ヺ"_s},
    {u"И"_s, u"И"_s}, {u"\u0E40"_s, u"\u0E44"_s}, {u"亜"_s, u"亞"_s},
};

TEST(FirstCharRange, NeverLeavesOutATextOfTheRange)
{
    const QStringList tails = awkwardTexts();
    for (const auto& range : kIndexRanges) {
        const char32_t lo = foldedBase(range.lo);
        const char32_t hi = foldedBase(range.hi);
        const auto keys = text::firstCharRange(lo, hi);
        ASSERT_TRUE(keys) << range.lo.toStdString();
        const auto folds = text::foldRange(lo, hi);
        for (char32_t c = lo; c <= hi; ++c) {
            const QString first = ofCodePoint(c);
            if (text::fold(first) != first)
                continue;
            for (const QString& tail : tails) {
                const QString whole = first + tail;
                const QByteArray key = text::sortKey(whole);
                ASSERT_LE(compare(keys->lower, key), 0) << whole.toStdString();
                ASSERT_GT(compare(keys->upper, key), 0) << whole.toStdString();
                const QByteArray folded = text::fold(whole).toUtf8();
                ASSERT_LE(compare(folds.lower.toUtf8(), folded), 0) << whole.toStdString();
                ASSERT_GT(compare(folds.upper.toUtf8(), folded), 0) << whole.toStdString();
            }
        }
    }
}

TEST(FirstCharRange, LeavesOutTheOtherRowsOfTheIndex)
{
    const struct {
        Range range;
        QString outside;
    } table[] = {
        {{u"ｶ"_s, u"ｺ"_s}, u"アイウエオォンサソザさﾀワABZ09亜・ "_s},
        {{u"ｱ"_s, u"ｵ"_s}, u"カガサンA9亜・ "_s},
        {{u"ﾜ"_s, u"ﾝ"_s}, u"アカラルロA9亜・ "_s},
        {{u"A"_s, u"C"_s}, u"DEZアカ09亜- "_s},
        {{u"Y"_s, u"Z"_s}, u"ABXア09亜"_s},
    };
    for (const auto& row : table) {
        const auto keys = text::firstCharRange(foldedBase(row.range.lo), foldedBase(row.range.hi));
        ASSERT_TRUE(keys);
        for (const QChar first : row.outside) {
            const QByteArray key = text::sortKey(QString(first) + u"ンン"_s);
            EXPECT_TRUE(compare(key, keys->lower) < 0 || compare(key, keys->upper) >= 0)
                << row.range.lo.toStdString() << " " << QString(first).toStdString();
        }
    }
}

TEST(FirstCharRange, GivesNoBoundWhereNoneIsSafe)
{
    const Range unsafe[] = {{u"\u3099"_s, u"\u309A"_s}, {u"\u0301"_s, u"\u0301"_s},
                            {u"\u200B"_s, u"\u200B"_s}, {u"!"_s, u"\uFFFD"_s},
                            {u"Z"_s, u"A"_s},           {u"\u0001"_s, u"A"_s}};
    for (const auto& range : unsafe) {
        EXPECT_FALSE(text::firstCharRange(range.lo.toUcs4().first(), range.hi.toUcs4().first()))
            << range.lo.toUtf8().toHex().toStdString();
    }
}

TEST(FoldRange, BoundsTextsByTheirBeginning)
{
    const struct {
        QString prefix;
        QString upper;
    } table[] = {
        {u"カ"_s, u"ガ"_s},           {u"2004/02"_s, u"2004/03"_s}, {u"\uD7FF"_s, u"\uE000"_s},
        {u"\uFFFF"_s, u"𐀀"_s},        {u"A\U0010FFFF"_s, u"B"_s},   {u"𠮷"_s, u"𠮸"_s},
        {u"\U0010FFFF"_s, QString()}, {QString(), QString()},
    };
    for (const auto& row : table) {
        const auto range = text::foldRange(row.prefix);
        EXPECT_EQ(range.lower, row.prefix);
        EXPECT_EQ(range.upper, row.upper);
    }
}

} // namespace
