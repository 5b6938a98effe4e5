#pragma once

#include <QDateTime>
#include <QString>

#include <variant>

namespace storage {

enum class ValueType { Null, Integer, Real, Text, DateTime };

// One field value: Null, a whole number, a real number, a text or a date-time.
// A date-time is civil time without a zone and is kept as its text
// "yyyy/mm/dd hh:mm:ss.zzz", so that reading a row parses nothing.
class Value {
public:
    Value() = default;
    Value(int number) : m_data(qint64{number}) {}
    Value(qint64 number) : m_data(number) {}
    Value(double number) : m_data(number) {}
    Value(QString text) : m_data(std::move(text)) {}
    // Milliseconds count; the zone of the argument is ignored. An invalid date-time gives Null.
    Value(const QDateTime& dateTime);

    // A date-time from its stored text; the text is taken as it is.
    static Value fromDateTimeText(QString text);

    ValueType type() const { return static_cast<ValueType>(m_data.index()); }
    bool isNull() const { return type() == ValueType::Null; }

    // The value as text: Null as empty text, numbers as `&` joins them (no trailing ".0"),
    // date-times as "yyyy/mm/dd hh:mm:ss.zzz".
    QString toText() const&;
    QString toText() &&;
    // The value as a whole number (a real is rounded half to even, a text is read as a number);
    // `fallback` for Null and for text that is no number.
    qint64 toInteger(qint64 fallback = 0) const;
    // As toInteger, for real numbers.
    double toReal(double fallback = 0.0) const;
    // The civil date-time (Qt::UTC, so that no hour is lost or doubled); invalid when there is
    // none.
    QDateTime toDateTime() const;

    // Same type and same content; texts are compared by code unit.
    bool operator==(const Value& other) const = default;

private:
    struct DateTimeText {
        QString text;
        bool operator==(const DateTimeText& other) const = default;
    };
    std::variant<std::monostate, qint64, double, QString, DateTimeText> m_data;
};

} // namespace storage
