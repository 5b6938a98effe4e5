#include "text/fold.h"

#include <gmock/gmock.h>

#include <random>

using namespace Qt::StringLiterals;

namespace {

QString fromCodePoint(char32_t c)
{
    return QStringView(QChar::fromUcs4(c)).toString();
}

QString foldedUtf8(const QByteArray& utf8)
{
    std::u16string folded;
    text::appendFolded(std::string_view(utf8.constData(), static_cast<std::size_t>(utf8.size())),
                       folded);
    return QStringView(folded).toString();
}

bool isScalar(char32_t c)
{
    return c < 0xD800 || c > 0xDFFF;
}

// Numbers that are the same in every run.
class Random {
public:
    explicit Random(unsigned seed) : m_engine(seed) {}
    int below(std::size_t end) { return static_cast<int>(m_engine() % end); }

private:
    std::mt19937 m_engine;
};

struct Spellings {
    QStringList alike;
    QString folded;
};

TEST(Fold, BringsSpellingsOfOneReadingTogether)
{
    const Spellings table[] = {
        {{u"ガ"_s, u"が"_s, u"ｶﾞ"_s, u"か\u3099"_s, u"カ゛"_s, u"か゛"_s}, u"カ\u3099"_s},
        {{u"パ"_s, u"ぱ"_s, u"ﾊﾟ"_s, u"ハ゜"_s}, u"ハ\u309A"_s},
        {{u"サービス"_s, u"ｻｰﾋﾞｽ"_s, u"さーびす"_s}, u"サーヒ\u3099ス"_s},
        {{u"ヴ"_s, u"ｳﾞ"_s, u"ゔ"_s}, u"ウ\u3099"_s},
        {{u"ゝゞ"_s, u"ヽヾ"_s}, u"ヽヽ\u3099"_s},
        {{u"ヵヶ"_s, u"ゕゖ"_s}, u"ヵヶ"_s},
        {{u"ッャュョァィゥェォ"_s, u"っゃゅょぁぃぅぇぉ"_s, u"ｯｬｭｮｧｨｩｪｫ"_s},
         u"ッャュョァィゥェォ"_s},
        {{u"。「」、・"_s, u"｡｢｣､･"_s}, u"。「」、・"_s},
        {{u"ＴＥＬ"_s, u"tel"_s, u"ｔｅｌ"_s, u"TEL"_s}, u"TEL"_s},
        {{u"０１２－３４"_s, u"012-34"_s, u"012−34"_s}, u"012-34"_s},
        {{u"㈱"_s, u"(株)"_s, u"（株）"_s}, u"(株)"_s},
        {{u"ß"_s, u"ss"_s, u"SS"_s}, u"SS"_s},
        {{u"é"_s, u"É"_s, u"e\u0301"_s}, u"E\u0301"_s},
        {{u"a　b"_s, u"A b"_s}, u"A B"_s},
        {{u"〜"_s, u"～"_s, u"~"_s}, u"~"_s},
        {{u"‖"_s, u"∥"_s}, u"‖"_s},
        {{u"—"_s, u"―"_s}, u"―"_s},
        {{u"𛅐"_s, u"𛅤"_s}, u"𛅤"_s},
        {{u"𝐀𝐚"_s}, u"AA"_s},
        {{u"𠮷野家"_s}, u"𠮷野家"_s},
    };
    for (const auto& row : table) {
        for (const QString& spelling : row.alike) {
            EXPECT_EQ(text::fold(spelling), row.folded) << spelling.toStdString();
            EXPECT_EQ(foldedUtf8(spelling.toUtf8()), row.folded) << spelling.toStdString();
        }
    }
}

TEST(Fold, KeepsReadingsApart)
{
    const QStringList different = {u"カ"_s, u"ガ"_s, u"ハ"_s,     u"バ"_s,  u"パ"_s, u"ッ"_s,
                                   u"ツ"_s, u"ー"_s, u"ア"_s,     u"ァ"_s,  u"ヽ"_s, u"ヾ"_s,
                                   u"ヲ"_s, u"オ"_s, u"高"_s,     u"髙"_s,  u"-"_s,  u"_"_s,
                                   u"ヵ"_s, u"0"_s,  u"\u3099"_s, QString()};
    for (const QString& a : different) {
        for (const QString& b : different)
            EXPECT_EQ(text::fold(a) == text::fold(b), a == b) << a.toStdString() << b.toStdString();
    }
}

TEST(Fold, WalksTheKanaRowsInAllKindsAndWidths)
{
    const QString hiragana = u"あいうえおかきくけこさしすせそたちつてとなにぬねのはひふへほ"
                             u"まみむめもやゆよらりるれろわをんがぎぐげござじずぜぞだぢづでど"
                             u"ばびぶべぼぱぴぷぺぽ"_s;
    const QString halfWidth = u"ｱｲｳｴｵｶｷｸｹｺｻｼｽｾｿﾀﾁﾂﾃﾄﾅﾆﾇﾈﾉﾊﾋﾌﾍﾎﾏﾐﾑﾒﾓﾔﾕﾖﾗﾘﾙﾚﾛﾜｦﾝ"
                              u"ｶﾞｷﾞｸﾞｹﾞｺﾞｻﾞｼﾞｽﾞｾﾞｿﾞﾀﾞﾁﾞﾂﾞﾃﾞﾄﾞﾊﾞﾋﾞﾌﾞﾍﾞﾎﾞﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ"_s;
    EXPECT_EQ(text::fold(hiragana), text::fold(halfWidth));
    for (char32_t c = 0x3041; c <= 0x3096; ++c)
        EXPECT_EQ(text::fold(fromCodePoint(c)), text::fold(fromCodePoint(c + 0x60)));
}

TEST(Fold, IsSettledForEveryCharacter)
{
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        if (!isScalar(c))
            continue;
        const QString character = fromCodePoint(c);
        const QString folded = text::fold(character);
        ASSERT_FALSE(folded.isEmpty()) << static_cast<unsigned>(c);
        ASSERT_EQ(text::fold(folded), folded) << static_cast<unsigned>(c);
        ASSERT_EQ(foldedUtf8(character.toUtf8()), folded) << static_cast<unsigned>(c);
    }
}

TEST(Fold, MapsEachCharacterOnItsOwn)
{
    Random random(1);
    const QString interesting = u"カガか゛ﾞﾟｶｱーヽヾ㈱①ßŉﷺ한각𝐀𠮷é\u0301\u0327σςΣiİıIx -"_s;
    const auto characters = interesting.toUcs4();
    const auto randomText = [&] {
        QString text;
        for (int length = random.below(6); length > 0; --length) {
            const auto at = random.below(static_cast<std::size_t>(characters.size()));
            const auto other = static_cast<char32_t>(0x20 + random.below(0xD000));
            text += fromCodePoint(random.below(3) != 0 ? characters[at] : other);
        }
        return text;
    };
    for (int i = 0; i < 20000; ++i) {
        const QString a = randomText();
        const QString b = randomText();
        ASSERT_EQ(text::fold(a + b), text::fold(a) + text::fold(b)) << (a + b).toStdString();
        ASSERT_EQ(foldedUtf8((a + b).toUtf8()), text::fold(a + b)) << (a + b).toStdString();
    }
}

TEST(Fold, ReadsBrokenUtf8AsQStringDoes)
{
    Random random(2);
    const unsigned char bytes[] = {0x00, 0x41, 0x7F, 0x80, 0xBF, 0xC0, 0xC2, 0xC3, 0xDF,
                                   0xE0, 0xE3, 0x82, 0xED, 0xA0, 0xEF, 0xF0, 0x9F, 0xF4,
                                   0x90, 0xF5, 0xFF, 0xAB, 0xBD, 0xBE, 0x9E};
    for (int i = 0; i < 50000; ++i) {
        QByteArray broken("x"); // ahead of a byte order mark, which QString would drop
        for (int n = random.below(8); n > 0; --n)
            broken += static_cast<char>(bytes[random.below(std::size(bytes))]);
        ASSERT_EQ(foldedUtf8(broken), text::fold(QString::fromUtf8(broken)))
            << broken.toHex().toStdString();
    }
}

TEST(Fold, TakesUnpairedSurrogatesAndZeros)
{
    const char16_t lone[] = {u'a', 0xD842, u'b', 0xDFB7, u'\0', u'c', 0xD842};
    const QString folded = text::fold(QStringView(lone, std::size(lone)));
    EXPECT_EQ(folded, QString::fromUtf16(u"A\uFFFDB\uFFFD\0C\uFFFD", 7));
}

TEST(Fold, AppendsToWhatIsThere)
{
    std::u16string units = u"前";
    std::string bytes = "前";
    for (const char* part : {"ガ", "ﷺ㈱", "", "𠮷"}) {
        text::appendFolded(std::string_view(part), units);
        text::appendFoldedUtf8(part, bytes);
    }
    EXPECT_EQ(QString::fromStdU16String(units), u"前"_s + text::fold(u"ガﷺ㈱𠮷"));
    EXPECT_EQ(QString::fromStdString(bytes), QString::fromStdU16String(units));
}

TEST(FoldName, TellsNamesApartOnlyByMoreThanWidthAndCase)
{
    const QStringList alike[] = {
        {u"ユーザーID"_s, u"ﾕｰｻﾞｰID"_s, u"ﾕｰｻﾞｰｉｄ"_s, u"ユーザーＩＤ"_s},
        {u"自宅TEL"_s, u"自宅ＴＥＬ"_s, u"自宅tel"_s},
        {u"納品リスト"_s, u"納品ﾘｽﾄ"_s},
        {u"会社名フリガナ"_s, u"会社名ﾌﾘｶﾞﾅ"_s},
        {u"４印刷件名"_s, u"4印刷件名"_s},
    };
    QStringList folded;
    for (const QStringList& names : alike) {
        for (const QString& name : names)
            EXPECT_EQ(text::foldName(name), text::foldName(names.first())) << name.toStdString();
        EXPECT_FALSE(folded.contains(text::foldName(names.first())));
        folded += text::foldName(names.first());
    }
    EXPECT_NE(text::foldName(u"ろぐ"), text::foldName(u"ログ"));
}

} // namespace
