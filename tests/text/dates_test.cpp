#include "text/dates.h"

#include <gmock/gmock.h>

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

TEST(Dates, WritesTheWeekdayInJapaneseWhateverTheLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    const struct {
        QDate date;
        QString written;
        QString weekday;
    } table[] = {
        {{2004, 2, 29}, u"2004/02/29(日)"_s, u"日曜日"_s},
        {{2024, 1, 1}, u"2024/01/01(月)"_s, u"月曜日"_s},
        {{1945, 8, 14}, u"1945/08/14(火)"_s, u"火曜日"_s},
        {{2051, 3, 1}, u"2051/03/01(水)"_s, u"水曜日"_s},
        {{9999, 12, 30}, u"9999/12/30(木)"_s, u"木曜日"_s},
        {{2100, 1, 1}, u"2100/01/01(金)"_s, u"金曜日"_s},
        {{2000, 1, 1}, u"2000/01/01(土)"_s, u"土曜日"_s},
        {{100, 1, 1}, u"0100/01/01(金)"_s, u"金曜日"_s},
        {{99, 12, 31}, QString(), u"木曜日"_s},
        {QDate(), QString(), QString()},
    };
    for (const auto& row : table) {
        EXPECT_EQ(text::formatDate(row.date), row.written);
        EXPECT_EQ(text::formatPlainDate(row.date), row.written.left(10));
        EXPECT_EQ(text::weekdayName(row.date), row.weekday);
        if (!row.written.isEmpty()) {
            EXPECT_EQ(row.written.size(), 13);
            EXPECT_EQ(text::parseDate(row.written), row.date);
        }
    }
    QLocale::setDefault(before);
}

TEST(Dates, KeepsEveryMomentOfTheClock)
{
    // Half past two did not exist on this night where summer time began.
    const QDateTime moment = text::civil(QDate(2024, 3, 31), QTime(2, 30, 5, 7));
    EXPECT_EQ(text::formatDateTime(moment), u"2024/03/31 02:30:05.007"_s);
    EXPECT_EQ(text::parseDateTime(u"2024/03/31 02:30:05.007"), moment);
    EXPECT_EQ(text::civil(moment.date(), moment.time()).addSecs(3600).time(), QTime(3, 30, 5, 7));
    const QDateTime zoned(QDate(2024, 7, 1), QTime(23, 59, 59, 999), Qt::OffsetFromUTC, 9 * 3600);
    EXPECT_EQ(text::formatDateTime(zoned), u"2024/07/01 23:59:59.999"_s);
    EXPECT_EQ(text::formatDateTime(text::civil(zoned)), u"2024/07/01 23:59:59.999"_s);
    EXPECT_EQ(text::formatDateTime(QDateTime()), QString());
    EXPECT_EQ(text::formatTime(QTime(9, 5, 59)), u"09:05"_s);
    EXPECT_EQ(text::formatTime(QTime()), QString());
}

TEST(Dates, ReadsStoredDatesTolerantly)
{
    const QDate date(2004, 2, 9);
    for (const QString& written :
         {u"2004/02/09"_s, u"2004/02/09(月)"_s, u"2004/02/09(日)"_s, u"2004/2/9"_s, u"2004-02-09"_s,
          u" 2004/02/09 (月) "_s, u"２００４／０２／０９（月）"_s, u"2004/02/09()"_s})
        EXPECT_EQ(text::parseDate(written), date) << written.toStdString();
    for (const QString& written :
         {u""_s, u"2004/02/30"_s, u"2003/02/29"_s, u"2004/13/01"_s, u"2004/00/01"_s, u"2004/02"_s,
          u"04/02/09"_s, u"2004/02-09"_s, u"2004/02/09(月"_s, u"2004/02/09x"_s, u"20040209"_s,
          u"2004/002/09"_s, u"12004/02/09"_s, u"2004//09"_s, u"-2004/02/09"_s})
        EXPECT_EQ(text::parseDate(written), std::nullopt) << written.toStdString();
}

TEST(Dates, ReadsTimes)
{
    EXPECT_EQ(text::parseTime(u"09:05"), QTime(9, 5));
    EXPECT_EQ(text::parseTime(u" ９：０５ "), QTime(9, 5));
    EXPECT_EQ(text::parseTime(u"23:59:58"), QTime(23, 59, 58));
    for (const QString& written : {u""_s, u"24:00"_s, u"9:5"_s, u"09:60"_s, u"9"_s, u"09:05x"_s})
        EXPECT_EQ(text::parseTime(written), std::nullopt) << written.toStdString();
}

TEST(Dates, ReadsLiteralsOfStatements)
{
    const struct {
        QString body;
        QDate date;
        QTime time;
    } table[] = {
        {u"2004/02/29"_s, {2004, 2, 29}, {0, 0}},
        {u"2004/02/29 23:59:59"_s, {2004, 2, 29}, {23, 59, 59}},
        {u"2004/02/29 00:00:00"_s, {2004, 2, 29}, {0, 0}},
        {u"2004/2/9 8:05"_s, {2004, 2, 9}, {8, 5}},
        {u" 2004-02-29 "_s, {2004, 2, 29}, {0, 0}},
        {u"2/29/2004"_s, {2004, 2, 29}, {0, 0}},
        {u"12/1/1899 10:20:30"_s, {1899, 12, 1}, {10, 20, 30}},
        {u"3/4/2051"_s, {2051, 3, 4}, {0, 0}},
        {u"100/01/01"_s, {100, 1, 1}, {0, 0}},
        {u"1/1/100"_s, {100, 1, 1}, {0, 0}},
        {u"9999/12/31 23:59:59"_s, {9999, 12, 31}, {23, 59, 59}},
    };
    for (const auto& row : table)
        EXPECT_EQ(text::parseDateLiteral(row.body), text::civil(row.date, row.time))
            << row.body.toStdString();
    for (const QString& body :
         {u""_s, u"2/30/2004"_s, u"13/2/2004"_s, u"2004/02/29 24:00:00"_s, u"2004/02/29 1:2:3"_s,
          u"99/01/01"_s, u"1/1/99"_s, u"10000/01/01"_s, u"2004/02/29(日)"_s, u"2004/02/29x"_s,
          u"10:20"_s, u"2004/02/2910:00"_s, u"2004/02/29 10:00 x"_s, u"0000/01/01"_s})
        EXPECT_EQ(text::parseDateLiteral(body), std::nullopt) << body.toStdString();
}

TEST(Dates, ReadsBackEveryDayThatItWrites)
{
    for (QDate date(1999, 12, 25); date < QDate(2004, 3, 5); date = date.addDays(1)) {
        ASSERT_EQ(text::parseDate(text::formatDate(date)), date);
        const QDateTime noon = text::civil(date, QTime(12, 0, 0, 1));
        ASSERT_EQ(text::parseDateTime(text::formatDateTime(noon)), noon);
        ASSERT_LT(text::formatDate(date), text::formatDate(date.addDays(1)));
    }
}

} // namespace
