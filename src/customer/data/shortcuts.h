#pragma once

#include "core/data/record_key.h"
#include "core/data/record_list.h"
#include "core/data/row_changes.h"
#include "customer/data/customer_file.h"

#include <QString>

#include <memory>

// File shortcuts of customers and of cases (ユーザー関連ファイル, 件名関連ファイル).
namespace customer {

enum class ShortcutOwner { Customer, Case };

// The name shown for a file: what follows the last separator of its path.
QString shortcutName(const QString& path);

// `owner`: the customer or case (its ID and mark count).
core::SaveResult addShortcut(CustomerFile& file, ShortcutOwner kind, const core::RecordKey& owner,
                             const QString& path);
// Asks first. Deletes the shortcut, never the file.
core::DeleteResult deleteShortcut(CustomerFile& file, ShortcutOwner kind,
                                  const core::RecordKey& key);
// The path of a shortcut; nothing when it is gone or cannot be read.
std::optional<QString> shortcutPath(CustomerFile& file, ShortcutOwner kind,
                                    const core::RecordKey& key);

// The shortcuts of a customer or case. Cells: ﾌｧｲﾙ名, 場所.
std::unique_ptr<core::RecordList> openShortcuts(CustomerFile& file, ShortcutOwner kind,
                                                const core::RecordKey& owner);

} // namespace customer
