#include "text/typed_dates.h"

#include "text/fold.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace text {
namespace {

const QString Weekday = u"(?: *(?:\\([^()]{0,3}\\)|[月火水木金土日]曜日?))?"_s;
const QString SignedDate = u"(?:([0-9]{4})([-/.]))?([0-9]{1,2})[-/.]([0-9]{1,2})"_s;
const QString SpelledDate = u"(?:([0-9]{4}) *(年) *)?([0-9]{1,2}) *月 *([0-9]{1,2}) *日"_s;
const QString DigitsDate = u"(?:([0-9]{4})())?([0-9]{2})([0-9]{2})"_s;
const QString SignedTime = u"([0-9]{1,2}):([0-9]{2})(?::[0-5][0-9])?"_s;
const QString SpelledTime = u"([0-9]{1,2}) *時(?: *([0-9]{1,2}) *分)?"_s;
const QString DigitsTime = u"([0-9]{1,2})([0-9]{2})?"_s;

QRegularExpressionMatch matchOf(const QString& pattern, const QString& typed)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(typed);
}

} // namespace

QString plainTyped(QStringView typed)
{
    QString plain = fold(typed).trimmed();
    for (const char16_t dash : {u'\u2010', u'\u2013', u'\u2212', u'\u30fc'})
        plain.replace(QChar(dash), u'-');
    return plain;
}

std::optional<QDate> readTypedDate(QStringView typed, int thisYear)
{
    const QString plain = plainTyped(typed);
    for (const QString& pattern : {SignedDate, SpelledDate, DigitsDate}) {
        const QRegularExpressionMatch match = matchOf(pattern + Weekday, plain);
        if (!match.hasMatch())
            continue;
        const int year = match.hasCaptured(1) ? match.captured(1).toInt() : thisYear;
        const QDate date(year, match.captured(3).toInt(), match.captured(4).toInt());
        return date.isValid() && year >= 100 ? std::optional(date) : std::nullopt;
    }
    return std::nullopt;
}

std::optional<QTime> readTypedTime(QStringView typed)
{
    const QString plain = plainTyped(typed);
    for (const QString& pattern : {SignedTime, SpelledTime, DigitsTime}) {
        const QRegularExpressionMatch match = matchOf(pattern, plain);
        if (!match.hasMatch())
            continue;
        const QTime time(match.captured(1).toInt(), match.captured(2).toInt());
        return time.isValid() ? std::optional(time) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace text
