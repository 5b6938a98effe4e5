#include "text/typed_dates.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

TEST(TypedDates, AreReadInEveryForm)
{
    const struct {
        QString typed;
        std::optional<QDate> date;
    } table[] = {
        {u"2027/12/31"_s, QDate(2027, 12, 31)},
        {u"20271231"_s, QDate(2027, 12, 31)},
        {u"2027-12-31"_s, QDate(2027, 12, 31)},
        {u"2027.1.5"_s, QDate(2027, 1, 5)},
        {u"２０２７／１２／３１"_s, QDate(2027, 12, 31)},
        {u"２０２７−１２ー３１"_s, QDate(2027, 12, 31)},
        {u" 2027/12/31(金)\n"_s, QDate(2027, 12, 31)},
        {u"2027年12月31日"_s, QDate(2027, 12, 31)},
        {u"２０２７年　１月 ５日（火曜日）"_s, QDate(2027, 1, 5)},
        {u"2027年1月5日 火曜日"_s, QDate(2027, 1, 5)},
        {u"12/31"_s, QDate(2026, 12, 31)},
        {u"1月5日"_s, QDate(2026, 1, 5)},
        {u"0105"_s, QDate(2026, 1, 5)},
        {u"2028/2/29"_s, QDate(2028, 2, 29)},
        {u"2/29"_s, std::nullopt},
        {u"2027/13/1"_s, std::nullopt},
        {u"2027/12/31/11/23(月)"_s, std::nullopt},
        {u"27/12/31"_s, std::nullopt},
        {u"2027123"_s, std::nullopt},
        {u"00011231"_s, std::nullopt},
        {u"2027"_s, std::nullopt},
        {u"来週"_s, std::nullopt},
        {QString(), std::nullopt},
    };
    for (const auto& row : table)
        EXPECT_EQ(text::readTypedDate(row.typed, 2026), row.date) << row.typed.toStdString();
}

TEST(TypedDates, TimesToo)
{
    const struct {
        QString typed;
        std::optional<QTime> time;
    } table[] = {
        {u"9:30"_s, QTime(9, 30)},    {u"09:30:59"_s, QTime(9, 30)}, {u"0930"_s, QTime(9, 30)},
        {u"930"_s, QTime(9, 30)},     {u"９：３０"_s, QTime(9, 30)}, {u"9時5分"_s, QTime(9, 5)},
        {u"17時"_s, QTime(17, 0)},    {u"9"_s, QTime(9, 0)},         {u"24:00"_s, std::nullopt},
        {u"9:3"_s, std::nullopt},     {u"960"_s, std::nullopt},      {u"09300"_s, std::nullopt},
        {u"9:30 頃"_s, std::nullopt}, {QString(), std::nullopt},
    };
    for (const auto& row : table)
        EXPECT_EQ(text::readTypedTime(row.typed), row.time) << row.typed.toStdString();
}

} // namespace
