#include "core/data/record_key.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using core::RecordKey;

TEST(RecordKeys, AreTextAndBack)
{
    const std::pair<QString, RecordKey> keys[] = {
        {u"12-0-12-2024/04/15 10:30:00.123"_s, {12, 0, 12, u"2024/04/15 10:30:00.123"_s}},
        {u"12-3-7"_s, {12, 3, 7, {}}},
        {u"0-0-0"_s, {}},
        {u"9223372036854775807--1-2"_s, {9223372036854775807, -1, 2, {}}},
    };
    for (const auto& [text, key] : keys) {
        EXPECT_EQ(key.toText(), text);
        EXPECT_EQ(RecordKey::fromText(text), key) << text.toStdString();
    }
    for (const QString& text :
         {u""_s, u"12"_s, u"a-b-c"_s, u"1-2"_s, u"99999999999999999999-0-1"_s})
        EXPECT_TRUE(RecordKey::fromText(text).isNone()) << text.toStdString();
}
