#pragma once

#include "core/data/data_file.h"
#include "core/data/record_key.h"

#include <QString>

// What the log preview window shows and where it stands. Both kinds of data file keep its place in
// the same columns of their settings row; their logs are tables of their own.
namespace core {

// Where a kind of data file keeps its log entries.
struct LogTable {
    QString rowQuery; // completed by the update ID
    QString day;      // columns
    QString recorder;
    QString text;
};

// The preview of an entry as it is stored, ends of lines CR LF; empty when it is gone.
QString previewText(DataFile& file, const LogTable& log, const RecordKey& key);

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

} // namespace core
