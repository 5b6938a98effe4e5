#pragma once

#include "records/data/data_file.h"
#include "records/data/record_list.h"
#include "records/data/record_table.h"

#include <QDate>
#include <QSet>

#include <memory>

// The schedule (table 予定), which both kinds of data file have alike and which belongs to no
// record. 日付 is kept as a day ("yyyy/mm/dd(aaa)"), 時刻 as "hh:mm", "00:00" when none is given.
namespace records {

// 予定 must not be blank.
const RecordTable& scheduleTable();
// Columns: 日付, 時刻, 予定.
const ListDescription& scheduleList();

// The entries from a day to another, both included, by date and time.
std::unique_ptr<RecordList> openSchedule(Database& data, QDate first, QDate last);
// The number of entries of a day.
qint64 countScheduleEntries(Database& data, QDate day);
// The days from one to another, both included, that have entries.
QSet<QDate> daysWithEntries(Database& data, QDate first, QDate last);
// The day followed by は日曜日です。 to は土曜日です。
QString weekdayAnnouncement(QDate day);

} // namespace records
