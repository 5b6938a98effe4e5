#include "records/data/schedule.h"

#include "support/records/data/each_kind_test.h"
#include "text/dates.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using records::SaveResult;

namespace {

class ScheduleTest : public EachKindTest {
protected:
    void add(QDate day, const QString& time, const QString& text)
    {
        EXPECT_EQ(
            addRecord(file, records::scheduleTable(), {},
                      {{u"日付"_s, text::formatDate(day)}, {u"時刻"_s, time}, {u"予定"_s, text}}),
            SaveResult::Saved);
    }
};

TEST_P(ScheduleTest, ListsItsEntriesByDayAndTime)
{
    add({2024, 4, 30}, u"09:05"_s, u"末日"_s);
    add({2024, 4, 1}, u"13:00"_s, u"午後"_s);
    add({2024, 4, 1}, u"00:00"_s, u"終日"_s);
    add({2024, 3, 31}, u"08:00"_s, u"前月"_s);
    add({2024, 5, 1}, u"08:00"_s, u"翌月"_s);
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

TEST_P(ScheduleTest, RefusesABlankEntryOnly)
{
    EXPECT_EQ(addRecord(file, records::scheduleTable(), {}, {{u"予定"_s, QString()}}),
              SaveResult::Refused);
    EXPECT_EQ(messages.takeBoxes(),
              (QList<ScriptedMessages::Box>{{16, u"予定は空白禁止です。"_s}}));
    for (const QDate day : {QDate(1948, 2, 29), QDate(2052, 2, 29)}) {
        add(day, u"23:59"_s, u"遠い日"_s);
        EXPECT_EQ(openSchedule(file, day, day)->total(), 1);
    }
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
