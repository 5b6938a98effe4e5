#pragma once

#include "core/data/data_file.h"

#include <QString>

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

// Tells why nothing was read: the row was deleted meanwhile or, when the connection has recorded
// more failures than the given number, the last of them.
void tellNothingRead(DataFile& file, qsizetype failuresBefore);

// What `read` gives, an optional; when it is empty, the user is told why.
template <typename Read> auto readOrTell(DataFile& file, const Read& read)
{
    const qsizetype failures = file.connection.errors().size();
    auto found = read();
    if (!found)
        tellNothingRead(file, failures);
    return found;
}

} // namespace core
