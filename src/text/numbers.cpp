#include "text/numbers.h"

#include <QRegularExpression>

namespace text {

namespace {

constexpr qsizetype MostDigits = 15; // that a real number keeps exactly

// The minus signs that input methods and other programs give, as the one of the keyboard.
QString halfWidth(QStringView text)
{
    QString plain = text.toString().normalized(QString::NormalizationForm_KC).trimmed();
    for (const QChar minus : {u'\u2212', u'\u2010', u'\u2013', u'\u30fc'}) {
        if (plain.startsWith(minus))
            plain[0] = u'-';
    }
    return plain;
}

} // namespace

std::optional<QString> plainNumber(QStringView text, NumberForm form)
{
    static const QRegularExpression number(
        QStringLiteral("\\A([+-]?)(\\d{1,3}(?:,\\d{3})+|\\d+)?(?:\\.(\\d*))?\\z"));
    const QRegularExpressionMatch match = number.match(halfWidth(text));
    QString whole = match.captured(2).remove(u',');
    QString fraction = match.captured(3);
    if (!match.hasMatch() || (whole.isEmpty() && fraction.isEmpty()))
        return std::nullopt;
    if (form == NumberForm::Whole && fraction.count(u'0') == fraction.size())
        fraction.clear(); // "5.0" is whole
    while (whole.size() > 1 && whole.front() == u'0')
        whole.remove(0, 1);
    if (whole.isEmpty())
        whole = u'0';
    if (whole.size() + fraction.size() > MostDigits)
        return std::nullopt;
    QString plain = fraction.isEmpty() ? whole : whole + u'.' + fraction;
    if (match.capturedView(1) == u'-' && plain.toDouble() != 0)
        plain.prepend(u'-');
    bool fits = true;
    if (form == NumberForm::Whole)
        plain.toInt(&fits); // refuses what is left of a fraction too
    return fits ? std::optional(plain) : std::nullopt;
}

} // namespace text
