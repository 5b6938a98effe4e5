#include "ui/marked_calendar.h"

#include <QTextCharFormat>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& two)
{
    const auto [dark, light] = std::minmax({luminance(one), luminance(two)});
    return (light + 0.05) / (dark + 0.05);
}

TEST(MarkedCalendar, HasReadableDaysInLightAndDark)
{
    for (const QColor& button : {QColor(0xef, 0xef, 0xef), QColor(0x32, 0x32, 0x32)}) {
        const QPalette palette(button);
        ui::MarkedCalendar calendar;
        calendar.setPalette(palette);
        calendar.setCurrentPage(2026, 11);
        const QTextCharFormat holiday = calendar.dateTextFormat(QDate(2026, 11, 23));
        EXPECT_EQ(holiday.toolTip(), u"勤労感謝の日"_s);
        for (const QPalette::ColorRole base : {QPalette::Base, QPalette::AlternateBase}) {
            for (const QTextCharFormat& format : {holiday, calendar.weekdayTextFormat(Qt::Saturday),
                                                  calendar.weekdayTextFormat(Qt::Sunday)})
                EXPECT_GE(contrast(format.foreground().color(), palette.color(base)), 4.5);
        }
        calendar.setCurrentPage(2026, 12);
        EXPECT_EQ(calendar.dateTextFormat(QDate(2026, 11, 23)).toolTip(), QString());
    }
}

TEST(MarkedCalendar, KnowsTheDaysOnItsSheet)
{
    ui::MarkedCalendar calendar;
    calendar.setCurrentPage(2024, 9); // begins on a Sunday
    EXPECT_EQ(calendar.shownDays(), std::pair(QDate(2024, 8, 25), QDate(2024, 10, 5)));
    calendar.setCurrentPage(2024, 6); // begins on a Saturday
    EXPECT_EQ(calendar.shownDays(), std::pair(QDate(2024, 5, 26), QDate(2024, 7, 6)));
}

} // namespace
