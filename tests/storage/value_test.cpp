#include "storage/base/value.h"

#include <gmock/gmock.h>

#include <limits>

using namespace Qt::StringLiterals;
using storage::Value;
using storage::ValueType;

namespace {

TEST(Value, NumbersAreWrittenWithoutWhatTheyDoNotHold)
{
    const struct {
        Value value;
        QString text;
    } cases[] = {
        {Value(), u""_s},
        {Value(-7), u"-7"_s},
        {Value(100000.0), u"100000"_s},
        {Value(0.1), u"0.1"_s},
        {Value(-0.0), u"0"_s},
        {Value(1234567.25), u"1234567.25"_s},
        {Value(1e20), u"1e+20"_s},
        {Value(u" 5 "_s), u" 5 "_s},
        {Value(std::numeric_limits<qint64>::min()), u"-9223372036854775808"_s},
    };
    for (const auto& each : cases)
        EXPECT_EQ(each.value.toText(), each.text);
}

TEST(Value, WhatIsNoWholeNumberIsRoundedOrGivesTheFallback)
{
    const struct {
        Value value;
        qint64 number;
    } cases[] = {
        {Value(2.5), 2},
        {Value(3.5), 4},
        {Value(-2.5), -2},
        {Value(u" 12 "_s), 12},
        {Value(u"1.5"_s), 2},
        {Value(u"12a"_s), -1},
        {Value(u""_s), -1},
        {Value(), -1},
        {Value(1e300), -1},
        {Value(9.3e18), -1},
        {Value(std::numeric_limits<double>::quiet_NaN()), -1},
    };
    for (const auto& each : cases)
        EXPECT_EQ(each.value.toInteger(-1), each.number) << each.value.toText().toStdString();
    EXPECT_EQ(Value(u" 1.5 "_s).toReal(), 1.5);
    EXPECT_EQ(Value(u"x"_s).toReal(-1), -1);
}

TEST(Value, DateTimesAreCivilTimeWithoutAZone)
{
    const QDateTime zoned(QDate(2026, 11, 22), QTime(9, 5, 0, 7), Qt::OffsetFromUTC, 9 * 3600);
    const Value value(zoned);
    EXPECT_EQ(value.type(), ValueType::DateTime);
    EXPECT_EQ(value.toText(), u"2026/11/22 09:05:00.007"_s);
    EXPECT_EQ(value.toDateTime(), QDateTime(QDate(2026, 11, 22), QTime(9, 5, 0, 7), Qt::UTC));
    EXPECT_TRUE(Value(QDateTime()).isNull());
    EXPECT_FALSE(Value(u"きょう"_s).toDateTime().isValid());
    EXPECT_NE(value, Value(value.toText())); // a text is no date-time
}

} // namespace
