#pragma once

#include <QDate>
#include <QString>

// The national holidays of Japan, by the law on national holidays (国民の祝日に関する法律, law 178
// of 1948) as it was amended, and the special laws for single days. Good from the law's first day,
// 1948/07/20, to the end of 2099: the equinoxes are computed, and the rule for them is that of the
// years 1900 to 2099. (The days that count are published in February of the year before; what
// the law may change later is not known here.)
namespace text {

// How long the rules hold.
constexpr int LastHolidayYear = 2099;

// The holiday's name; 振替休日 for the day that stands in for one that fell on a Sunday, 国民の休日
// for a day between two holidays. Empty for any other day, and for those that the rules do not hold
// for.
QString holidayName(QDate day);

} // namespace text
