#pragma once

#include <QDate>
#include <QString>
#include <QStringView>
#include <QTime>

#include <optional>

// What people type or paste as a date or a time, in half or full width, with blanks around.
namespace text {

// yyyy/m/d, yyyy-m-d, yyyy.m.d, yyyymmdd or yyyy年m月d日, and without the year, which is then
// `thisYear`, m/d, m-d, mmdd or m月d日; a weekday behind it is not looked at. Nothing when it is
// none of them or no day of the calendar.
std::optional<QDate> readTypedDate(QStringView typed, int thisYear);
// h:mm, h:mm:ss, hmm, hhmm, h時mm分, h時 or the hour alone; without its seconds.
std::optional<QTime> readTypedTime(QStringView typed);
// The typed text as it is read: half width, one sign for all that look like it.
QString plainTyped(QStringView typed);

} // namespace text
