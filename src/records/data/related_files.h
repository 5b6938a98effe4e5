#pragma once

#include "records/data/list_description.h"
#include "records/data/record_list.h"
#include "records/data/record_table.h"

#include <QString>

#include <memory>
#include <optional>

// Shortcuts to files, which belong to a record. Only shortcuts are deleted, never files.
namespace records {

// One kind of shortcut.
struct RelatedFiles {
    RecordTable table;
    ListDescription list; // columns: ﾌｧｲﾙ名, 場所
    KeyedText condition;  // of the list: the shortcuts of one owner
    QString question;     // before one is deleted, after its name
};

// The file's name in a path of either kind of separator.
QString shortcutName(const QString& path);

// Parent, ﾌｧｲﾙ名 and 場所; tells the user when the owner is gone.
SaveResult addShortcut(Database& data, const RelatedFiles& kind, const core::RecordKey& owner,
                       const QString& path);
// Asks first.
DeleteResult deleteShortcut(Database& data, const RelatedFiles& kind, const core::RecordKey& key);
// Where the shortcut leads; nullopt when it is gone.
std::optional<QString> shortcutPath(Database& data, const RelatedFiles& kind,
                                    const core::RecordKey& key);
// The shortcuts of an owner.
std::unique_ptr<RecordList> openShortcuts(Database& data, const RelatedFiles& kind,
                                          const core::RecordKey& owner);

} // namespace records
