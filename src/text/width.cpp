#include "text/width.h"

#include <QHash>

using namespace Qt::Literals::StringLiterals;

namespace text {
namespace {

constexpr char16_t kIdeographicBlank = 0x3000;
constexpr char16_t kVoiced = 0x3099;
constexpr char16_t kSemiVoiced = 0x309A;
constexpr char16_t kFirstHalfWidth = 0xFF61;
constexpr char16_t kLastHalfWidth = 0xFF9F;
constexpr char16_t kFirstWideSign = 0xFF01; // "！", full-width form of U+0021

// The half-width characters in the order of their code points and what they are at full width.
constexpr QStringView kFullWidth =
    u"。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソ"
    u"タチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワン゛゜";
static_assert(kFullWidth.size() == kLastHalfWidth - kFirstHalfWidth + 1);

// Katakana without a half-width form of their own, and those that come nearest.
constexpr QStringView kRare = u"ヮヰヱヵヶ";
constexpr QStringView kNearest = u"ワイエカケ";
static_assert(kRare.size() == kNearest.size());

bool isHalfWidthKana(QChar c)
{
    return c >= kFirstHalfWidth && c <= kLastHalfWidth;
}

bool isHiragana(QChar c)
{
    return c >= u'ぁ' && c <= u'ゖ';
}

bool isKana(QChar c)
{
    return (c >= u'ぁ' && c <= u'ゔ') || c == u'ゕ' || c == u'ゖ' || (c >= u'ァ' && c <= u'ヺ');
}

QHash<QChar, QChar> halfWidthForms()
{
    QHash<QChar, QChar> forms;
    for (qsizetype i = 0; i < kFullWidth.size(); ++i)
        forms.insert(kFullWidth[i], QChar(kFirstHalfWidth + static_cast<int>(i)));
    for (qsizetype i = 0; i < kRare.size(); ++i)
        forms.insert(kRare[i], forms.value(kNearest[i]));
    forms.insert(QChar(kVoiced), forms.value(u'゛'));
    forms.insert(QChar(kSemiVoiced), forms.value(u'゜'));
    forms.insert(QChar(kIdeographicBlank), u' ');
    return forms;
}

// A kana and its voiced mark as two characters; anything else as it is.
QString takenApart(QChar c)
{
    const QString whole(c);
    return isKana(c) ? whole.normalized(QString::NormalizationForm_D) : whole;
}

} // namespace

QString toFullWidth(QStringView text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        if (c == u' ') {
            result += QChar(kIdeographicBlank);
        } else if (c > u' ' && c <= u'~') {
            result += QChar(kFirstWideSign + (c.unicode() - u'!'));
        } else if (!isHalfWidthKana(c)) {
            result += c;
        } else {
            const QChar full = kFullWidth[c.unicode() - kFirstHalfWidth];
            const bool mark = full == u'゛' || full == u'゜';
            const QString last = result.right(1);
            const QString joined = (last + QChar(full == u'゛' ? kVoiced : kSemiVoiced))
                                       .normalized(QString::NormalizationForm_C);
            if (mark && !last.isEmpty() && joined.size() == 1)
                result.back() = joined.front();
            else
                result += full;
        }
    }
    return result;
}

QString toHalfWidthKatakana(QStringView text)
{
    static const QHash<QChar, QChar> forms = halfWidthForms();
    QString result;
    result.reserve(text.size() * 2);
    for (const QChar written : text) {
        for (const QChar part : takenApart(written)) {
            const QChar katakana = isHiragana(part) ? QChar(part.unicode() + 0x60) : part;
            result += forms.value(katakana, part);
        }
    }
    return result;
}

} // namespace text
