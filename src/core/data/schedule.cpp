#include "core/data/schedule.h"

#include "core/data/messages.h"
#include "text/dates.h"

using namespace Qt::StringLiterals;

namespace core {

namespace {

const QString RowQuery = u"Select * From 予定 Where 予定更新ID ="_s;
const QString DeleteStatement = u"DELETE FROM 予定 Where 予定更新ID ="_s;
const QString RangeQuery = u"SELECT * From 予定 WHERE 日付 Between '"_s;
const QString RangeOrder = u"' ORDER BY 日付,時刻"_s;
const QString CountQuery = u"SELECT count(*) as ma1 From 予定 "_s;
const QString CountCondition = u"WHERE 日付 Like '"_s;
const QString DaysQuery = u"SELECT DISTINCT 日付 From 予定 WHERE 日付 Between '"_s;

FieldValues valuesOf(const ScheduleEntry& entry)
{
    const QTime time = entry.time.isValid() ? entry.time : QTime(0, 0);
    return {{u"日付"_s, text::formatDate(entry.date)},
            {u"時刻"_s, text::formatTime(time)},
            {u"予定"_s, entry.text}};
}

bool isRefused(DataFile& file, const ScheduleEntry& entry)
{
    if (!entry.text.isEmpty())
        return false;
    file.messages.refuse(u"予定は空白禁止です。"_s);
    return true;
}

QString between(QDate first, QDate last)
{
    return text::formatDate(first) + u"' And '"_s + text::formatDate(last);
}

} // namespace

const IdKind& scheduleKind()
{
    static const IdKind kind{u"予定"_s, u"SELECT Max(予定更新ID) as ma1 From 予定 "_s, u"予定"_s,
                             u"SELECT * From 予定 Where 予定更新ID = "_s, u"予定ID"_s};
    return kind;
}

SaveResult addScheduleEntry(DataFile& file, const ScheduleEntry& entry)
{
    if (isRefused(file, entry))
        return SaveResult::Refused;
    const FieldValues values = FieldValues{{u"予定識別ID"_s, 0}} + valuesOf(entry);
    return saveNew(file, [&] { return appendNumbered(file, scheduleKind(), values).has_value(); });
}

SaveResult changeScheduleEntry(DataFile& file, const RecordKey& key, const ScheduleEntry& entry,
                               const ScheduleEntry* shown)
{
    if (isRefused(file, entry))
        return SaveResult::Refused;
    const QString query = RowQuery + QString::number(key.updateId);
    const FieldValues written =
        shown ? editedOf(valuesOf(entry), valuesOf(*shown)) : valuesOf(entry);
    return saveChecked(file, query, key.stamp, [&] { return writeRow(file, query, written); });
}

DeleteResult deleteScheduleEntry(DataFile& file, const RecordKey& key)
{
    if (!confirmDelete(file))
        return DeleteResult::Kept;
    const QString number = QString::number(key.updateId);
    return deleteChecked(file, RowQuery + number, key.stamp,
                         [&] { return file.connection.execute(DeleteStatement + number); });
}

std::optional<KeptScheduleEntry> readScheduleEntry(DataFile& file, const RecordKey& key)
{
    storage::Recordset row;
    if (!row.open(RowQuery + QString::number(key.updateId), file.connection) || row.eof())
        return std::nullopt;
    return KeptScheduleEntry{{key.updateId, row.value(u"予定識別ID").toInteger(),
                              row.value(u"予定ID").toInteger(), row.text(u"更新日時")},
                             {text::parseDate(row.text(u"日付")).value_or(QDate()),
                              text::parseTime(row.text(u"時刻")).value_or(QTime()),
                              row.text(u"予定")}};
}

std::unique_ptr<RecordList> openSchedule(DataFile& file, QDate first, QDate last)
{
    const ListColumns columns{u"予定更新ID"_s,
                              u"予定識別ID"_s,
                              u"予定ID"_s,
                              u"更新日時"_s,
                              {u"日付"_s, u"時刻"_s, u"予定"_s},
                              {}};
    return std::make_unique<RecordList>(file, RangeQuery + between(first, last) + RangeOrder,
                                        columns, 0);
}

qint64 countScheduleEntries(DataFile& file, QDate day)
{
    return readNumber(file, CountQuery + CountCondition + text::formatPlainDate(day) + u"%' "_s,
                      u"ma1"_s)
        .value_or(0);
}

QSet<QDate> daysWithEntries(DataFile& file, QDate first, QDate last)
{
    QSet<QDate> days;
    storage::Recordset rows;
    if (!rows.open(DaysQuery + between(first, last) + u'\'', file.connection))
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

} // namespace core
