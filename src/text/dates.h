#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringView>
#include <QTime>
#include <optional>

// Dates and times as the system shows, stores and reads them, whatever the locale of the machine.
// A date-time is what the clock on the wall shows, without a zone: it is kept in a QDateTime of
// Qt::UTC, so that no hour is lost or doubled where summer time is kept. Writing takes the fields
// of a QDateTime as they are, whatever its zone. Years run from 100 to 9999; anything that is not
// such a date is written as the empty text and read as nothing.
namespace text {

// The date-time with these fields, without a zone.
QDateTime civil(QDate date, QTime time);
// The same date and time of day, without the zone (of QDateTime::currentDateTime(), say).
QDateTime civil(const QDateTime& zoned);

// "yyyy/mm/dd(aaa)": 13 characters that end in the weekday, as in 2004/02/29(日).
QString formatDate(QDate date);
// "yyyy/mm/dd"
QString formatPlainDate(QDate date);
// "hh:mm"; an invalid time gives the empty text.
QString formatTime(QTime time);
// "yyyy/mm/dd hh:mm:ss.zzz"
QString formatDateTime(const QDateTime& dateTime);
// "日" to "土"
QString weekdayLetter(QDate date);
// "日曜日" to "土曜日"
QString weekdayName(QDate date);

// A stored date: "yyyy/mm/dd" with or without a weekday in parentheses (which is not looked at).
// Months and days of one digit, hyphens, full-width characters and blanks around are taken too.
std::optional<QDate> parseDate(QStringView text);
// "hh:mm" or "hh:mm:ss", with the same tolerance.
std::optional<QTime> parseTime(QStringView text);
// What formatDateTime writes; the time, its seconds and their fraction may be missing.
std::optional<QDateTime> parseDateTime(QStringView text);
// What stands between the # signs of a date in a statement: yyyy/mm/dd, yyyy-mm-dd or m/d/yyyy
// (month first), each with or without hh:mm or hh:mm:ss behind it.
std::optional<QDateTime> parseDateLiteral(QStringView body);

} // namespace text
