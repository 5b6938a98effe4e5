#include "records/data/schedule.h"

#include "support/records/data/each_kind_test.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using records::SaveResult;

namespace {

class ScheduleTest : public EachKindTest {
protected:
    void add(QDate day, QTime time, const QString& text)
    {
        EXPECT_EQ(addScheduleEntry(file, {day, time, text}), SaveResult::Saved);
    }
};

TEST_P(ScheduleTest, ListsItsEntriesByDayAndTime)
{
    add({2024, 4, 30}, {9, 5}, u"末日"_s);
    add({2024, 4, 1}, {13, 0}, u"午後"_s);
    add({2024, 4, 1}, {}, u"終日"_s);
    add({2024, 3, 31}, {8, 0}, u"前月"_s);
    add({2024, 5, 1}, {8, 0}, u"翌月"_s);
    const auto list = openSchedule(file, {2024, 4, 1}, {2024, 4, 30});
    QStringList lines;
    for (const core::ListRow& row : list->rows(0, 9))
        lines.append(row.cells.join(u' '));
    EXPECT_EQ(lines,
              (QStringList{u"2024/04/01(月) 00:00 終日"_s, u"2024/04/01(月) 13:00 午後"_s,
                           u"2024/04/30(火) 09:05 末日"_s}));
    EXPECT_EQ(countScheduleEntries(file, {2024, 4, 1}), 2);
    EXPECT_EQ(countScheduleEntries(file, {2024, 4, 2}), 0);
    EXPECT_EQ(daysWithEntries(file, {2024, 4, 1}, {2024, 4, 30}),
              (QSet<QDate>{{2024, 4, 1}, {2024, 4, 30}}));
}

TEST_P(ScheduleTest, KeepsChangesAndDeletesAnEntry)
{
    EXPECT_EQ(addScheduleEntry(file, {{2024, 4, 1}, {}, {}}), SaveResult::Refused);
    EXPECT_EQ(messages.takeBoxes(),
              (QList<ScriptedMessages::Box>{{16, u"予定は空白禁止です。"_s}}));
    add({1948, 2, 29}, {23, 59}, u"昔"_s);
    const auto keyOf = [&] {
        const auto list = openSchedule(file, {1940, 1, 1}, {2060, 12, 31});
        return core::RecordKey::fromText(list->rows(0, 1).value(0).key);
    };
    const records::ScheduleEntry entry{{2052, 2, 29}, {7, 30}, u"先"_s};
    EXPECT_EQ(changeScheduleEntry(file, keyOf(), entry), SaveResult::Saved);
    EXPECT_EQ(readScheduleEntry(file, keyOf())->entry, entry);
    EXPECT_EQ(valueOf(u"SELECT 日付 FROM 予定"_s), u"2052/02/29(木)");
    messages.willAnswer(core::Answer::Yes);
    EXPECT_EQ(deleteScheduleEntry(file, keyOf()), records::DeleteResult::Deleted);
    EXPECT_EQ(messages.takeText(), u"削除しますか？");
    EXPECT_TRUE(keyOf().isNone());
}

TEST(WeekdayTest, AnnouncesTheWeekday)
{
    const QStringList names{u"月"_s, u"火"_s, u"水"_s, u"木"_s, u"金"_s, u"土"_s, u"日"_s};
    for (int day = 0; day < 7; ++day) {
        const QDate date(2024, 4, 15 + day);
        EXPECT_EQ(records::weekdayAnnouncement(date),
                  u"2024/04/"_s + QString::number(15 + day) + u'は' + names[day] + u"曜日です。"_s);
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, ScheduleTest, EachKind, kindName);

} // namespace
