// Code page, width and line ends.

#include "text/code_page.h"
#include "text/fold.h"
#include "text/lines.h"
#include "text/width.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

TEST(CodePage, WritesWhatWindowsWrites)
{
    const struct {
        QString text;
        QByteArray hex;
    } table[] = {
        {u"ｱ亜A"_s, "b1889f41"},
        {u"㈱①髙﨑Ⅲ"_s, "878a8740fbfcfab18756"},
        {u"～－∥―￥"_s, "8160817c8161815c818f"},
        {u"〜−‖—¥"_s, "8160817c8161815c818f"}, // as other systems type them
        {u"表示\\~"_s, "955c8ea65c7e"},
        {QString(QChar(0)) + u"\u001A\u001C\u007F\r\n"_s, "001a1c7f0d0a"},
        {u"𠮷é한"_s, "3f3f3f"},
        {u"俠\u200B"_s, "3f3f"},
    };
    for (const auto& row : table) {
        EXPECT_EQ(text::toCp932(row.text).toHex(), row.hex) << row.text.toStdString();
        EXPECT_EQ(text::cp932Length(row.text), row.hex.size() / 2) << row.text.toStdString();
    }
}

TEST(CodePage, ReadsBackWhatItWrites)
{
    for (uint c = 0; c <= 0xFFFF; ++c) {
        const QString character = QString(QChar(c));
        if ((c >= 0xD800 && c <= 0xDFFF) || text::firstOutsideCp932(character))
            continue;
        const QString back = text::fromCp932(text::toCp932(character));
        ASSERT_TRUE(back == character || text::fold(back) == text::fold(character)) << c;
    }
    const QByteArray broken[] = {"a\x81", "a\x81 ", "a\x85\x7B", "a\xA0", "a\xFD", "a\x80"};
    for (const QByteArray& bytes : broken) {
        const QString text = text::fromCp932(bytes);
        EXPECT_TRUE(text.startsWith(u"a\uFFFD"_s)) << bytes.toHex().toStdString();
    }
    EXPECT_EQ(text::fromCp932(""), QString());
}

TEST(CodePage, TellsWhereACharacterIsLacking)
{
    EXPECT_EQ(text::firstOutsideCp932(u"山田〜太郎ﾔﾏﾀﾞ\r\n"), std::nullopt);
    EXPECT_EQ(text::firstOutsideCp932(u"山田é"), 2);
    EXPECT_EQ(text::firstOutsideCp932(u"𠮷野家"), 0);
    EXPECT_EQ(text::firstOutsideCp932(u"か\u3099"), 1);
}

TEST(Width, MakesFullWidth)
{
    const struct {
        QString text;
        QString wide;
    } table[] = {
        {u"Version 3.1.1"_s, u"Ｖｅｒｓｉｏｎ　３．１．１"_s},
        {u"!~\\"_s, u"！～＼"_s},
        {u"ｶﾞｯｺｳ ﾊﾟﾝ ｳﾞ ﾜｦﾝ"_s, u"ガッコウ　パン　ヴ　ワヲン"_s},
        {u"ﾞｱﾞ"_s, u"゛ア゛"_s},
        {u"カﾞ｡｢｣､･ｰ"_s, u"ガ。「」、・ー"_s},
        {u"漢字かな９\r\n"_s, u"漢字かな９\r\n"_s},
    };
    for (const auto& row : table)
        EXPECT_EQ(text::toFullWidth(row.text), row.wide);
}

TEST(Width, MakesHalfWidthReadings)
{
    const struct {
        QString text;
        QString reading;
    } table[] = {
        {u"がっこう"_s, u"ｶﾞｯｺｳ"_s},
        {u"パーティー　ヴァ"_s, u"ﾊﾟｰﾃｨｰ ｳﾞｧ"_s},
        {u"わをんゐゑヷヺ"_s, u"ﾜｦﾝｲｴﾜﾞｦﾞ"_s},
        {u"ヵヶゎか゛は゜か\u3099"_s, u"ｶｹﾜｶﾞﾊﾟｶﾞ"_s},
        {u"「さくら」、。・"_s, u"｢ｻｸﾗ｣､｡･"_s},
        {u"ﾔﾏﾀﾞ漢字AＢ9é"_s, u"ﾔﾏﾀﾞ漢字AＢ9é"_s},
    };
    for (const auto& row : table)
        EXPECT_EQ(text::toHalfWidthKatakana(row.text), row.reading);
    // A reading made of kana folds as before, save for the rare kana of old spellings.
    const QString rare = u"ゎゐゑゕゖヮヰヱヵヶヸヹ゠ゝゞ\u3097\u3098"_s;
    for (char16_t c = 0x3041; c <= 0x30FC; ++c) {
        const QString kana = QString(QChar(c));
        if (rare.contains(kana))
            continue;
        EXPECT_EQ(text::fold(text::toHalfWidthKatakana(kana)), text::fold(kana))
            << kana.toStdString();
    }
}

TEST(Lines, ConvertEveryLineEndOnce)
{
    const struct {
        QString text;
        QString stored;
    } table[] = {
        {u"a\nb\r\nc\rd"_s, u"a\r\nb\r\nc\r\nd"_s},
        {u"\n\n\r\r\n"_s, u"\r\n\r\n\r\n\r\n"_s},
        {u"a\u2029b\u2028"_s, u"a\r\nb\r\n"_s},
        {QString(), QString()},
    };
    for (const auto& row : table) {
        EXPECT_EQ(text::toStoredLines(row.text), row.stored);
        EXPECT_EQ(text::toStoredLines(row.stored), row.stored);
        EXPECT_EQ(text::toStoredLines(text::toWidgetLines(row.text)), row.stored);
        EXPECT_FALSE(text::toWidgetLines(row.text).contains(u'\r'));
    }
}

} // namespace
