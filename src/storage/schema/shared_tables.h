#pragma once

#include "storage/schema/table_builder.h"

// The tables that the customer file and the repair file have in common, and the first rows of the
// one-row tables among them.
namespace storage::schema {

Table freeItemNames(Version version);    // 自由項目名
Table customSearches(Version version);   // カスタム検索
Table schedule(Version version);         // 予定
Table mergeRecords(Version version);     // コンバート情報
Table versionTable(Version version);     // バージョン情報
Table printedFreeItems(Version version); // ２印刷自由項目内容
// 最新発番 with one counter for each kind of record.
Table latestNumbers(Version version, const QString& counters);

// Those of the schedule, the only one of these tables that grows.
QList<Index> scheduleIndexes();

SeedRow versionRow(Version version);
// All counters at 0.
SeedRow latestNumbersRow(const Table& table);
// The row of 設定: 0 in every column of the table but those of `values`.
SeedRow settingsRow(const Table& table, const QList<std::pair<QString, Value>>& values);

} // namespace storage::schema
