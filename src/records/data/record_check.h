#pragma once

#include "core/data/messages.h"
#include "records/data/database.h"

#include <QString>

namespace storage {
class Recordset;
}

// The check before a record is changed or deleted: whether it still is as it was shown. What it is
// and what the user says to it are two things, so that nobody's answer is waited for under a lock.
namespace records {

enum class RecordState { Unchanged, Changed, Gone };

// How a row, just opened by its query, stands to the 更新日時 text that the screen held.
RecordState stateOf(const storage::Recordset& row, const QString& stampShown);

// What follows from it. A caller writes only on GoOn; on Declined and Gone it closes its screen.
enum class CheckResult { GoOn = 1, Declined = 2, Gone = 3 };

// Tells the user of a vanished record and asks about a changed one.
// `button`: what Enter presses in the question.
CheckResult askAbout(core::Messages& messages, RecordState state,
                     core::DefaultButton button = core::DefaultButton::First);

// Tells the user that the record to which another was to be added is no longer there.
void tellParentGone(core::Messages& messages);

// Tells why nothing was read: the record was deleted meanwhile or, when the connection has recorded
// more failures than the given number, the last of them.
void tellNothingRead(Database& data, qsizetype failuresBefore);

// What `read` gives, an optional; when it is empty, the user is told why.
template <typename Read> auto readOrTell(Database& data, const Read& read)
{
    const qsizetype failures = data.connection.errors().size();
    auto found = read();
    if (!found)
        tellNothingRead(data, failures);
    return found;
}

} // namespace records
