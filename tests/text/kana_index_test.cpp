// The kana index: the patterns of its rows and single kana over readings of every kind and width.

#include "text/like.h"
#include "text/width.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using text::LikePattern;

namespace {

struct Row {
    QString name;
    QString range;
    QString firstKana; // hiragana; all readings that begin with one of them belong to the row
};

const Row kRows[] = {
    {u"か行"_s, u"ｶ-ｺ"_s, u"かきくけこがぎぐげご"_s},
    {u"さ行"_s, u"ｻ-ｿ"_s, u"さしすせそざじずぜぞ"_s},
    {u"た行"_s, u"ﾀ-ﾄ"_s, u"たちつてとだぢづでどっ"_s},
    {u"な行"_s, u"ﾅ-ﾉ"_s, u"なにぬねの"_s},
    {u"は行"_s, u"ﾊ-ﾎ"_s, u"はひふへほばびぶべぼぱぴぷぺぽ"_s},
    {u"ま行"_s, u"ﾏ-ﾓ"_s, u"まみむめも"_s},
    {u"や行"_s, u"ﾔ-ﾖ"_s, u"やゆよゅょ"_s},
    {u"ら行"_s, u"ﾗ-ﾛ"_s, u"らりるれろ"_s},
    {u"わ行"_s, u"ﾜ-ﾝ"_s, u"わをん"_s},
    {u"ＡＢＣ"_s, u"A-Z"_s, u"AMZ"_s},
};

const QStringList kARow = {u"[あ-お]%"_s, u"[ぁ-ぉ]%"_s, u"[ｱ-ｵ]%"_s, u"[ｧ-ｫ]%"_s};
const QString kAKana = u"あいうえおぁぃぅぇぉゔ"_s;
// Small ya and wa stand before the large ones, small ka and ke behind the last row.
const QString kOthers = u"0９!山龠ーヽ・ゃゎヵヶω"_s;

// The reading that begins with this character, in the spellings that people type.
QStringList readings(QChar first)
{
    const QString reading = QString(first) + u"まだ"_s;
    QString katakana = reading;
    for (QChar& c : katakana) {
        if (c >= u'ぁ' && c <= u'ゖ')
            c = QChar(c.unicode() + 0x60);
    }
    return {reading,
            katakana,
            katakana.normalized(QString::NormalizationForm_D),
            text::toHalfWidthKatakana(reading),
            text::toFullWidth(reading),
            reading.toLower()};
}

bool inARow(const QString& reading)
{
    return std::any_of(kARow.begin(), kARow.end(),
                       [&](const QString& p) { return LikePattern(p).matches(reading); });
}

bool inOthers(const QString& reading)
{
    bool outside = LikePattern(u"[!ｱ-ｵ]%").matches(reading);
    for (const Row& row : kRows)
        outside = outside && LikePattern(u"[!"_s + row.range + u"]%"_s).matches(reading);
    return outside;
}

// The rows that a reading is found in, "他行" for none of them.
QStringList rowsOf(const QString& reading)
{
    QStringList rows;
    if (inARow(reading))
        rows << u"あ行"_s;
    for (const Row& row : kRows) {
        if (LikePattern(u'[' + row.range + u"]%"_s).matches(reading))
            rows << row.name;
    }
    if (inOthers(reading))
        rows << u"他行"_s;
    return rows;
}

TEST(KanaIndex, FindsEveryReadingInItsRowAlone)
{
    for (const Row& row : kRows) {
        for (const QChar first : row.firstKana) {
            for (const QString& reading : readings(first))
                EXPECT_EQ(rowsOf(reading), QStringList{row.name}) << reading.toStdString();
        }
    }
    for (const QChar first : kOthers) {
        const QString reading = QString(first) + u"まだ"_s;
        EXPECT_EQ(rowsOf(reading), QStringList{u"他行"_s}) << reading.toStdString();
    }
}

TEST(KanaIndex, FindsSmallVowelsInTheFirstRow)
{
    for (const QChar first : kAKana) {
        // The first small vowel lies before the range that the others leave out.
        const bool alsoOther = first == u'ぁ';
        const QStringList expected =
            alsoOther ? QStringList{u"あ行"_s, u"他行"_s} : QStringList{u"あ行"_s};
        for (const QString& reading : readings(first))
            EXPECT_EQ(rowsOf(reading), expected) << reading.toStdString();
    }
}

TEST(KanaIndex, FindsSingleKanaWithAndWithoutVoicedMark)
{
    const QStringList families = {u"かが"_s,   u"きぎ"_s,   u"しじ"_s, u"つづ"_s,
                                  u"はばぱ"_s, u"ほぼぽ"_s, u"うゔ"_s, u"ま"_s,
                                  u"ん"_s,     u"を"_s,     u"わ"_s};
    for (const QString& family : families) {
        const QString base = text::toHalfWidthKatakana(family.first(1));
        const LikePattern pattern(u'[' + base + u"]%"_s);
        for (const QString& other : families) {
            for (const QChar first : other) {
                for (const QString& reading : readings(first))
                    EXPECT_EQ(pattern.matches(reading), other == family) << reading.toStdString();
            }
        }
    }
}

} // namespace
