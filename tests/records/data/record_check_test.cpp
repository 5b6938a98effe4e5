#include "records/data/record_check.h"

#include "core/data/record_key.h"
#include "support/core/data/core_test.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using core::Answer;
using records::CheckParent;
using records::CheckRecord;
using records::CheckResult;
using core::RecordKey;
using testing::ElementsAre;
using testing::IsEmpty;
using Box = ScriptedMessages::Box;

namespace {

const QString row = u"SELECT * FROM main WHERE [No] = 1"_s;
const QString noRow = u"SELECT * FROM main WHERE [No] = 99"_s;
const QString refused = u"SELECT * FROM 無い表"_s;
const QString stamp = u"2024/04/15 10:30:00.123"_s;

class RecordCheck : public CoreTest {
protected:
    void SetUp() override
    {
        openFolder();
        clock.advanceMsecs(123);
        storage::Recordset written;
        ASSERT_TRUE(written.open(row, *shared.MainConnection, storage::CursorType::Dynamic,
                                 storage::LockType::Optimistic));
        written.setValue(u"更新日時", clock.now());
        ASSERT_TRUE(written.update());
    }

    CheckResult check(const QString& query, const QString& shown)
    {
        return CheckRecord(*shared.MainConnection, messages, query, shown);
    }
};

} // namespace

TEST_F(RecordCheck, AnUnchangedRowGoesOnInSilence)
{
    EXPECT_EQ(check(row, stamp), CheckResult::GoOn);
    EXPECT_THAT(messages.takeBoxes(), IsEmpty());
}

TEST_F(RecordCheck, AChangeOfAMillisecondIsAskedAbout)
{
    const Box question{52,
                       u"すでにデータが更新されている可能性があります、このまま更新しますか？"_s};
    messages.willAnswer(Answer::Yes);
    EXPECT_EQ(check(row, u"2024/04/15 10:30:00.122"_s), CheckResult::GoOn);
    messages.willAnswer(Answer::No);
    EXPECT_EQ(check(row, {}), CheckResult::Declined);
    EXPECT_THAT(messages.takeBoxes(),
                ElementsAre(question, question, Box{64, u"リスト表示を更新して下さい"_s}));
}

TEST_F(RecordCheck, AVanishedRowIsTold)
{
    EXPECT_EQ(check(noRow, stamp), CheckResult::Gone);
    EXPECT_THAT(messages.takeBoxes(),
                ElementsAre(Box{48,
                                u"データが削除されている為、更新できません。\r\n"
                                "リスト表示を更新して下さい。"_s}));
}

TEST_F(RecordCheck, ARowThatCannotBeReadIsNotTakenForAVanishedOne)
{
    EXPECT_EQ(check(refused, stamp), CheckResult::Failed);
    EXPECT_TRUE(messages.takeText().startsWith(u"データを読めませんでした。\r\n"_s));
    EXPECT_FALSE(CheckParent(*shared.MainConnection, messages, refused));
    EXPECT_TRUE(messages.takeText().startsWith(u"データを読めませんでした。\r\n"_s));
    EXPECT_EQ(takeErrors().size(), 2);
}

TEST_F(RecordCheck, AMissingParentIsToldInTextAndTitle)
{
    EXPECT_TRUE(CheckParent(*shared.MainConnection, messages, row));
    EXPECT_FALSE(CheckParent(*shared.MainConnection, messages, noRow));
    EXPECT_THAT(messages.takeBoxes(),
                ElementsAre(Box{
                    16, u"追加しようしているデータ元がみつかりません。"_s,
                    u"すでに削除された可能性があります。再表示後にデータを確認して下さい。"_s}));
}

TEST(RecordKeys, AreTextAndBack)
{
    const std::pair<QString, RecordKey> keys[] = {
        {u"12-0-12-2024/04/15 10:30:00.123"_s, {12, 0, 12, stamp}},
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
