#include "text/holidays.h"

#include <array>

using namespace Qt::StringLiterals;

namespace text {
namespace {

constexpr int Always = LastHolidayYear;

enum class Rule { Day, Monday, SpringEquinox, AutumnEquinox };

// `day`: of the month; by Rule::Monday which Monday of it.
struct Holiday {
    const char16_t* name;
    int first, last; // years
    Rule rule;
    int month, day;
};

constexpr std::array Holidays{
    Holiday{u"元日", 1949, Always, Rule::Day, 1, 1},
    Holiday{u"成人の日", 1949, 1999, Rule::Day, 1, 15},
    Holiday{u"成人の日", 2000, Always, Rule::Monday, 1, 2},
    Holiday{u"建国記念の日", 1967, Always, Rule::Day, 2, 11},
    Holiday{u"天皇誕生日", 2020, Always, Rule::Day, 2, 23},
    Holiday{u"春分の日", 1949, Always, Rule::SpringEquinox, 3, 0},
    Holiday{u"天皇誕生日", 1949, 1988, Rule::Day, 4, 29},
    Holiday{u"みどりの日", 1989, 2006, Rule::Day, 4, 29},
    Holiday{u"昭和の日", 2007, Always, Rule::Day, 4, 29},
    Holiday{u"憲法記念日", 1949, Always, Rule::Day, 5, 3},
    Holiday{u"みどりの日", 2007, Always, Rule::Day, 5, 4},
    Holiday{u"こどもの日", 1949, Always, Rule::Day, 5, 5},
    Holiday{u"海の日", 1996, 2002, Rule::Day, 7, 20},
    Holiday{u"海の日", 2003, 2019, Rule::Monday, 7, 3},
    Holiday{u"海の日", 2020, 2020, Rule::Day, 7, 23},
    Holiday{u"海の日", 2021, 2021, Rule::Day, 7, 22},
    Holiday{u"海の日", 2022, Always, Rule::Monday, 7, 3},
    Holiday{u"山の日", 2016, 2019, Rule::Day, 8, 11},
    Holiday{u"山の日", 2020, 2020, Rule::Day, 8, 10},
    Holiday{u"山の日", 2021, 2021, Rule::Day, 8, 8},
    Holiday{u"山の日", 2022, Always, Rule::Day, 8, 11},
    Holiday{u"敬老の日", 1966, 2002, Rule::Day, 9, 15},
    Holiday{u"敬老の日", 2003, Always, Rule::Monday, 9, 3},
    Holiday{u"秋分の日", 1948, Always, Rule::AutumnEquinox, 9, 0},
    Holiday{u"体育の日", 1966, 1999, Rule::Day, 10, 10},
    Holiday{u"体育の日", 2000, 2019, Rule::Monday, 10, 2},
    Holiday{u"スポーツの日", 2020, 2020, Rule::Day, 7, 24},
    Holiday{u"スポーツの日", 2021, 2021, Rule::Day, 7, 23},
    Holiday{u"スポーツの日", 2022, Always, Rule::Monday, 10, 2},
    Holiday{u"文化の日", 1948, Always, Rule::Day, 11, 3},
    Holiday{u"勤労感謝の日", 1948, Always, Rule::Day, 11, 23},
    Holiday{u"天皇誕生日", 1989, 2018, Rule::Day, 12, 23},
    // Laws for single days.
    Holiday{u"皇太子明仁親王の結婚の儀", 1959, 1959, Rule::Day, 4, 10},
    Holiday{u"昭和天皇の大喪の礼", 1989, 1989, Rule::Day, 2, 24},
    Holiday{u"即位礼正殿の儀", 1990, 1990, Rule::Day, 11, 12},
    Holiday{u"皇太子徳仁親王の結婚の儀", 1993, 1993, Rule::Day, 6, 9},
    Holiday{u"天皇の即位の日", 2019, 2019, Rule::Day, 5, 1},
    Holiday{u"即位礼正殿の儀", 2019, 2019, Rule::Day, 10, 22},
};

// The day of the month in the time of Japan: that of 1980 (or, with leap days counted from 1983, of
// the years before), moved by what the year is longer than 365 days and by the leap days since.
int equinox(int year, double before1980, double since1980)
{
    const bool early = year < 1980;
    const int leapDays = (year - (early ? 1983 : 1980)) / 4; // towards zero, as the rule has it
    return static_cast<int>((early ? before1980 : since1980) + 0.242194 * (year - 1980)) - leapDays;
}

int dayOf(const Holiday& holiday, int year)
{
    switch (holiday.rule) {
    case Rule::Day:
        return holiday.day;
    case Rule::Monday:
        return 7 * holiday.day - (QDate(year, holiday.month, 7).dayOfWeek() - Qt::Monday);
    case Rule::SpringEquinox:
        return equinox(year, 20.8357, 20.8431);
    case Rule::AutumnEquinox:
        return equinox(year, 23.2588, 23.2488);
    }
    return 0;
}

// The name of a day that the law itself calls a holiday.
QString namedHoliday(QDate day)
{
    for (const Holiday& holiday : Holidays) {
        if (day.month() == holiday.month && day.year() >= holiday.first
            && day.year() <= holiday.last && day.day() == dayOf(holiday, day.year()))
            return QString::fromUtf16(holiday.name);
    }
    return {};
}

bool isNamed(QDate day)
{
    return !namedHoliday(day).isEmpty();
}

// Since 1973/04/12 for the Monday behind; since 2007 for the first day behind that is no holiday.
bool isSubstitute(QDate day)
{
    if (day < QDate(1973, 4, 12))
        return false;
    QDate holiday = day.addDays(-1);
    while (day.year() >= 2007 && isNamed(holiday) && holiday.dayOfWeek() != Qt::Sunday)
        holiday = holiday.addDays(-1);
    return holiday.dayOfWeek() == Qt::Sunday && isNamed(holiday);
}

// Since 1985/12/27; until 2006 not on a Sunday.
bool isBetweenHolidays(QDate day)
{
    return day >= QDate(1985, 12, 27) && isNamed(day.addDays(-1)) && isNamed(day.addDays(1))
        && (day.year() >= 2007 || day.dayOfWeek() != Qt::Sunday);
}

} // namespace

QString holidayName(QDate day)
{
    if (!day.isValid() || day < QDate(1948, 7, 20) || day.year() > LastHolidayYear)
        return {};
    const QString name = namedHoliday(day);
    if (!name.isEmpty())
        return name;
    if (isSubstitute(day))
        return u"振替休日"_s;
    return isBetweenHolidays(day) ? u"国民の休日"_s : QString();
}

} // namespace text
