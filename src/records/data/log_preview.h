#pragma once

#include "records/data/data_file.h"
#include "records/data/record_table.h"

#include <QString>

// What the log preview window shows and where it stands. Both kinds of data file keep its place in
// the same columns of their settings row; their logs are tables of their own.
namespace records {

// A kind of data file's log entries.
struct LogTable {
    const RecordTable& entries;
    QString day; // columns
    QString recorder;
    QString text;
};

// The preview of an entry as it is stored, ends of lines CR LF; empty when it is gone.
QString previewText(Database& data, const LogTable& log, const core::RecordKey& key);

// Where the window stands and whether it stays in front; places and sizes in twips.
struct PreviewPlace {
    bool onTop = false; // ログプレ手前
    int left = 0;       // ログプレ横位置
    int top = 0;        // ログプレ縦位置
    int width = 9150;   // ログプレ横幅
    int height = 2085;  // ログプレ縦幅

    bool operator==(const PreviewPlace& other) const = default;
};

PreviewPlace readPreviewPlace(DataFile& file);
// Each writes its own columns alone. The user is told of a failure; false then.
bool savePreviewPlace(DataFile& file, const PreviewPlace& place); // without 手前
bool savePreviewOnTop(DataFile& file, bool onTop);

} // namespace records
