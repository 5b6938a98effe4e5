#pragma once

#include "core/data/log_preview.h"
#include "core/data/record_key.h"
#include "core/data/row_changes.h"
#include "customer/data/customer_file.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

// Log entries of cases (table ログ).
namespace customer {

struct LogFields {
    QDate recorded;   // 登録日
    QString recorder; // 記録者
    QString text;     // Rログ

    bool operator==(const LogFields& other) const = default;
};

struct KeptLog {
    core::RecordKey key;
    qint64 caseId = 0; // with the entry's mark, the case
    LogFields fields;
};

// `ofCase`: the case that is written about (its ID and mark count). Saving and deleting refresh the
// 最近更新日時 of the case and of its customer.
core::SaveResult addLog(CustomerFile& file, const core::RecordKey& ofCase, const LogFields& fields,
                        core::RecordKey* added = nullptr);
// `shown`: what the fields held before they were edited; null: all are written.
core::SaveResult changeLog(CustomerFile& file, const core::RecordKey& key, const LogFields& fields,
                           const LogFields* shown = nullptr);
// Asks first.
core::DeleteResult deleteLog(CustomerFile& file, const core::RecordKey& key);

// The entry with its present key; nullopt when it is gone.
std::optional<KeptLog> readLog(CustomerFile& file, const core::RecordKey& key);

// The names of recorders that the file holds: those of the last 5,000 entries, most recently used
// first, then the older ones in their order, also those whose entries are gone; at most 200.
QStringList recorderNames(CustomerFile& file);

// The log as the preview window reads it.
const core::LogTable& logTable();

} // namespace customer
