#pragma once

#include "records/data/list_description.h"
#include "records/data/log_preview.h"
#include "records/data/record_table.h"

#include <QStringList>

// Log entries of cases (table ログ).
namespace customer {

// An entry belongs to a case; the case and its customer count as changed with it.
const records::RecordTable& logTable();
// Columns: 登録日, 記録者, Rログ.
const records::ListDescription& logList();
records::ListFilter logsOfCase(const core::RecordKey& ofCase, const QString& title);

// The log as the preview window reads it.
const records::LogTable& previewedLogs();

// The names of recorders that the file holds: those of the last 5,000 entries, most recently used
// first, then the older ones in their order, also those whose entries are gone; at most 200.
QStringList recorderNames(records::Database& data);

} // namespace customer
