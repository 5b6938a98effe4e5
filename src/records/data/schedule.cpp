#include "records/data/schedule.h"

#include "records/data/row_changes.h"
#include "text/dates.h"

using namespace Qt::StringLiterals;

namespace records {

namespace {

const QString EntryRow = u"Select * From 予定 Where 予定更新ID ="_s;
const QString DeleteEntry = u"DELETE FROM 予定 Where 予定更新ID ="_s;
const QString EntryMax = u"SELECT Max(予定更新ID) as ma1 From 予定 "_s;
const QString NewEntryRow = u"SELECT * From 予定 Where 予定更新ID = "_s;
const QString Entries = u"SELECT * From 予定"_s;
const QString RangeCondition = u" WHERE 日付 Between '"_s;
const QString RangeOrder = u" ORDER BY 日付,時刻"_s;
const QString EntryCount = u"SELECT count(*) as ma1 From 予定 "_s;
const QString CountCondition = u"WHERE 日付 Like '"_s;
const QString DaysQuery = u"SELECT DISTINCT 日付 From 予定 WHERE 日付 Between '"_s;

QString between(QDate first, QDate last)
{
    return text::formatDate(first) + u"' And '"_s + text::formatDate(last) + u'\'';
}

} // namespace

const RecordTable& scheduleTable()
{
    static const RecordTable table{
        .name = u"予定"_s,
        .numbering = {EntryMax, NewEntryRow, u"予定"_s},
        .updateIdColumn = u"予定更新ID"_s,
        .markColumn = u"予定識別ID"_s,
        .idColumn = u"予定ID"_s,
        .rowQuery = {EntryRow},
        .cascade = {{DeleteEntry}},
        .refusal = blankRefused({u"予定"_s}, u"予定は空白禁止です。"_s),
    };
    return table;
}

const ListDescription& scheduleList()
{
    static const ListDescription list{
        .statement = Entries,
        .updateId = u"予定更新ID"_s,
        .mark = u"予定識別ID"_s,
        .id = u"予定ID"_s,
        .stamp = u"更新日時"_s,
        .columns = {{u"予定日"_s, u"日付"_s, {}, 115},
                    {u"時刻"_s, u"時刻"_s, {}, 50},
                    {u"予定内容"_s, u"予定"_s}},
    };
    return list;
}

std::unique_ptr<RecordList> openSchedule(Database& data, QDate first, QDate last)
{
    const ListFilter filter{RangeCondition + between(first, last), RangeOrder, {}};
    return openWholeList(data, scheduleList(), filter, {});
}

qint64 countScheduleEntries(Database& data, QDate day)
{
    return readNumber(data, EntryCount + CountCondition + text::formatPlainDate(day) + u"%' "_s,
                      u"ma1"_s)
        .value_or(0);
}

QSet<QDate> daysWithEntries(Database& data, QDate first, QDate last)
{
    QSet<QDate> days;
    storage::Recordset rows;
    if (!rows.open(DaysQuery + between(first, last), data.connection))
        return days;
    while (!rows.eof()) {
        if (const std::optional<QDate> day = text::parseDate(rows.text(u"日付")))
            days.insert(*day);
        if (!rows.moveNext())
            break;
    }
    return days;
}

QString weekdayAnnouncement(QDate day)
{
    return text::formatPlainDate(day) + u'は' + text::weekdayName(day) + u"です。"_s;
}

} // namespace records
