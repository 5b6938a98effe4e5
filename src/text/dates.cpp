#include "text/dates.h"

#include "text/fold.h"

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace text {
namespace {

constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr QStringView kWeekdays = u"月火水木金土日"; // as QDate counts them, from Monday = 1

bool isWritable(QDate date)
{
    return date.isValid() && date.year() >= kFirstYear && date.year() <= kLastYear;
}

void putDigits(QString& out, int number, int digits)
{
    for (int divisor = digits == 4 ? 1000 : digits == 3 ? 100 : 10; divisor > 0; divisor /= 10)
        out += QChar(u'0' + number / divisor % 10);
}

void putDate(QString& out, QDate date)
{
    putDigits(out, date.year(), 4);
    out += u'/';
    putDigits(out, date.month(), 2);
    out += u'/';
    putDigits(out, date.day(), 2);
}

void putTime(QString& out, QTime time)
{
    putDigits(out, time.hour(), 2);
    out += u':';
    putDigits(out, time.minute(), 2);
}

// Reads a text from left to right; each step says whether it found what it looked for and moves on
// only then.
class Reader {
public:
    explicit Reader(QStringView text) : m_rest(text) {}

    bool atEnd() const { return m_rest.isEmpty(); }

    bool take(char16_t sign)
    {
        if (!m_rest.startsWith(QChar(sign)))
            return false;
        m_rest = m_rest.sliced(1);
        return true;
    }

    bool takeBlanks()
    {
        const auto before = m_rest.size();
        while (take(u' ')) {}
        return m_rest.size() != before;
    }

    // The number made of all digits that stand here; none when they are not `least` to `most`.
    std::optional<int> number(int least, int most)
    {
        int digits = 0;
        int value = 0;
        for (; digits < m_rest.size() && isDigit(m_rest.at(digits)); ++digits) {
            if (digits == most)
                return std::nullopt;
            value = value * 10 + (m_rest.at(digits).unicode() - u'0');
        }
        if (digits < least)
            return std::nullopt;
        m_rest = m_rest.sliced(digits);
        return value;
    }

    // "(日)", whatever weekday it is.
    bool takeWeekday()
    {
        const auto close = m_rest.indexOf(u')');
        if (!m_rest.startsWith(u'(') || close < 0)
            return false;
        m_rest = m_rest.sliced(close + 1);
        return true;
    }

private:
    static bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

    QStringView m_rest;
};

std::optional<QDate> validDate(std::optional<int> year, std::optional<int> month,
                               std::optional<int> day)
{
    if (!year || !month || !day)
        return std::nullopt;
    const QDate date(*year, *month, *day);
    return isWritable(date) ? std::optional(date) : std::nullopt;
}

// yyyy/m/d or yyyy-m-d; the same sign twice.
std::optional<QDate> readYearFirst(Reader& reader)
{
    const auto year = reader.number(3, 4);
    const char16_t sign = reader.take(u'/') ? u'/' : u'-';
    if (sign == u'-' && !reader.take(u'-'))
        return std::nullopt;
    const auto month = reader.number(1, 2);
    if (!reader.take(sign))
        return std::nullopt;
    return validDate(year, month, reader.number(1, 2));
}

std::optional<QDate> readMonthFirst(Reader& reader)
{
    const auto month = reader.number(1, 2);
    if (!reader.take(u'/'))
        return std::nullopt;
    const auto day = reader.number(1, 2);
    if (!reader.take(u'/'))
        return std::nullopt;
    return validDate(reader.number(3, 4), month, day);
}

// h:mm, h:mm:ss or h:mm:ss.zzz
std::optional<QTime> readTime(Reader& reader)
{
    const auto hour = reader.number(1, 2);
    if (!hour || !reader.take(u':'))
        return std::nullopt;
    const auto minute = reader.number(2, 2);
    std::optional<int> second = 0;
    std::optional<int> millisecond = 0;
    if (reader.take(u':')) {
        second = reader.number(2, 2);
        if (reader.take(u'.'))
            millisecond = reader.number(3, 3);
    }
    if (!minute || !second || !millisecond
        || !QTime::isValid(*hour, *minute, *second, *millisecond))
        return std::nullopt;
    return QTime(*hour, *minute, *second, *millisecond);
}

// The rest of a date-time behind its date.
std::optional<QDateTime> readTimeBehind(QDate date, Reader& reader)
{
    std::optional<QTime> time = QTime(0, 0);
    if (reader.takeBlanks() && !reader.atEnd())
        time = readTime(reader);
    reader.takeBlanks();
    if (!time || !reader.atEnd())
        return std::nullopt;
    return civil(date, *time);
}

} // namespace

QDateTime civil(QDate date, QTime time)
{
    return QDateTime(date, time, Qt::UTC);
}

QDateTime civil(const QDateTime& zoned)
{
    return civil(zoned.date(), zoned.time());
}

QString formatDate(QDate date)
{
    if (!isWritable(date))
        return {};
    QString text;
    text.reserve(13);
    putDate(text, date);
    text += u'(';
    text += weekdayLetter(date);
    text += u')';
    return text;
}

QString formatPlainDate(QDate date)
{
    QString text;
    if (isWritable(date))
        putDate(text, date);
    return text;
}

QString formatTime(QTime time)
{
    QString text;
    if (time.isValid())
        putTime(text, time);
    return text;
}

QString formatDateTime(const QDateTime& dateTime)
{
    const QDate date = dateTime.date();
    const QTime time = dateTime.time();
    QString text;
    if (!dateTime.isValid() || !isWritable(date))
        return text;
    text.reserve(23);
    putDate(text, date);
    text += u' ';
    putTime(text, time);
    text += u':';
    putDigits(text, time.second(), 2);
    text += u'.';
    putDigits(text, time.msec(), 3);
    return text;
}

QString weekdayLetter(QDate date)
{
    return date.isValid() ? QString(kWeekdays.at(date.dayOfWeek() - 1)) : QString();
}

QString weekdayName(QDate date)
{
    return date.isValid() ? weekdayLetter(date) + u"曜日"_s : QString();
}

std::optional<QDate> parseDate(QStringView text)
{
    const QString folded = fold(text);
    Reader reader(folded);
    reader.takeBlanks();
    const auto date = readYearFirst(reader);
    reader.takeBlanks();
    reader.takeWeekday();
    reader.takeBlanks();
    return reader.atEnd() ? date : std::nullopt;
}

std::optional<QTime> parseTime(QStringView text)
{
    const QString folded = fold(text);
    Reader reader(folded);
    reader.takeBlanks();
    const auto time = readTime(reader);
    reader.takeBlanks();
    return reader.atEnd() ? time : std::nullopt;
}

std::optional<QDateTime> parseDateTime(QStringView text)
{
    Reader reader(text);
    const auto date = readYearFirst(reader);
    return date ? readTimeBehind(*date, reader) : std::nullopt;
}

std::optional<QDateTime> parseDateLiteral(QStringView body)
{
    Reader reader(body);
    reader.takeBlanks();
    Reader monthFirst = reader;
    auto date = readYearFirst(reader);
    if (!date) {
        date = readMonthFirst(monthFirst);
        reader = monthFirst;
    }
    return date ? readTimeBehind(*date, reader) : std::nullopt;
}

} // namespace text
