#pragma once

#include "core/data/numbering.h"
#include "core/data/record_key.h"
#include "core/data/record_list.h"
#include "core/data/row_changes.h"

#include <QDate>
#include <QSet>
#include <QTime>

#include <memory>
#include <optional>

// The schedule (table 予定), which both kinds of data file have alike and which belongs to no
// record.
namespace core {

struct ScheduleEntry {
    QDate date;
    QTime time; // invalid: none, kept as "00:00"
    QString text;

    bool operator==(const ScheduleEntry& other) const = default;
};

struct KeptScheduleEntry {
    RecordKey key;
    ScheduleEntry entry;
};

const IdKind& scheduleKind();

// 予定 must not be blank.
SaveResult addScheduleEntry(DataFile& file, const ScheduleEntry& entry);
// `shown`: what the fields held before they were edited; null: all are written.
SaveResult changeScheduleEntry(DataFile& file, const RecordKey& key, const ScheduleEntry& entry,
                               const ScheduleEntry* shown = nullptr);
// Asks first.
DeleteResult deleteScheduleEntry(DataFile& file, const RecordKey& key);
// The entry with its present key; nullopt when it is gone.
std::optional<KeptScheduleEntry> readScheduleEntry(DataFile& file, const RecordKey& key);

// The entries from a day to another, both included, by date and time. Cells: 日付, 時刻, 予定.
std::unique_ptr<RecordList> openSchedule(DataFile& file, QDate first, QDate last);
// The number of entries of a day.
qint64 countScheduleEntries(DataFile& file, QDate day);
// The days from one to another, both included, that have entries.
QSet<QDate> daysWithEntries(DataFile& file, QDate first, QDate last);
// The day followed by は日曜日です。 to は土曜日です。
QString weekdayAnnouncement(QDate day);

} // namespace core
