#include "storage/base/value.h"

#include "text/dates.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace storage {
namespace {

// Beyond this a real has no digits left behind the point, and an exponent reads better.
constexpr double kPlainLimit = 1e15;

QString realText(double number)
{
    const char format = std::abs(number) < kPlainLimit ? 'f' : 'g';
    return number == 0.0 ? u"0"_s : QString::number(number, format, QLocale::FloatingPointShortest);
}

qint64 rounded(double number, qint64 fallback)
{
    constexpr double limit = 9223372036854775808.0; // 2^63, the first that does not fit
    const double whole = std::nearbyint(number);
    return whole >= -limit && whole < limit ? static_cast<qint64>(whole) : fallback;
}

} // namespace

Value::Value(const QDateTime& dateTime)
{
    const QString text = text::formatDateTime(dateTime);
    if (!text.isEmpty())
        m_data = DateTimeText{text};
}

Value Value::fromDateTimeText(QString text)
{
    Value value;
    value.m_data = DateTimeText{std::move(text)};
    return value;
}

QString Value::toText() const&
{
    switch (type()) {
    case ValueType::Null:
        break;
    case ValueType::Integer:
        return QString::number(std::get<qint64>(m_data));
    case ValueType::Real:
        return realText(std::get<double>(m_data));
    case ValueType::Text:
        return std::get<QString>(m_data);
    case ValueType::DateTime:
        return std::get<DateTimeText>(m_data).text;
    }
    return QString();
}

// Every cell of a list is read from a temporary: its text is handed on, not shared.
QString Value::toText() &&
{
    if (auto* text = std::get_if<QString>(&m_data))
        return std::move(*text);
    if (auto* moment = std::get_if<DateTimeText>(&m_data))
        return std::move(moment->text);
    return std::as_const(*this).toText();
}

qint64 Value::toInteger(qint64 fallback) const
{
    if (const auto* number = std::get_if<qint64>(&m_data))
        return *number;
    if (const auto* number = std::get_if<double>(&m_data))
        return rounded(*number, fallback);
    const auto* text = std::get_if<QString>(&m_data);
    if (!text)
        return fallback;
    bool whole = false;
    const qint64 number = text->trimmed().toLongLong(&whole);
    if (whole)
        return number;
    bool real = false;
    const double read = text->trimmed().toDouble(&real);
    return real ? rounded(read, fallback) : fallback;
}

double Value::toReal(double fallback) const
{
    if (const auto* number = std::get_if<qint64>(&m_data))
        return static_cast<double>(*number);
    if (const auto* number = std::get_if<double>(&m_data))
        return *number;
    const auto* text = std::get_if<QString>(&m_data);
    if (!text)
        return fallback;
    bool read = false;
    const double number = text->trimmed().toDouble(&read);
    return read ? number : fallback;
}

QDateTime Value::toDateTime() const
{
    if (type() != ValueType::DateTime && type() != ValueType::Text)
        return QDateTime();
    return text::parseDateTime(toText()).value_or(QDateTime());
}

} // namespace storage
