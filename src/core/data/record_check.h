#pragma once

#include <QString>

namespace storage {
class Connection;
}

namespace core {

class Messages;

// What the check before an update or a delete found. A caller writes only on GoOn; on Declined and
// Gone it closes its edit screen, on Failed (the engine could not read the row; the user was told)
// the screen stays open with what was typed.
enum class CheckResult { Failed = 0, GoOn = 1, Declined = 2, Gone = 3 };

// Re-reads a row by its query and compares its 更新日時 text with the one that the screen held;
// tells the user of a vanished row and asks about a changed one.
CheckResult CheckRecord(storage::Connection& connection, Messages& messages, const QString& query,
                        const QString& stampShown);

// Whether a parent is still there before a child is added to it; tells the user when it is not.
bool CheckParent(storage::Connection& connection, Messages& messages, const QString& query);

// Tells the user that the row to be changed was deleted meanwhile.
void tellRowGone(Messages& messages);

} // namespace core
