#pragma once

#include <QString>
#include <QStringView>

namespace storage {
class Connection;
struct Error;
} // namespace storage

namespace core {

class Messages;

inline constexpr QStringView SaveFailedText = u"保存できませんでした。";
inline constexpr QStringView DeleteFailedText = u"削除できませんでした。";
inline constexpr QStringView ReadFailedText = u"データを読めませんでした。";

// Says in a message box (style 16) what could not be done and, on the next line, why; the engine's
// own words stand in its details. Nobody may believe that something is saved when it is not.
void tellFailure(Messages& messages, QStringView what, const storage::Error& error);

// The same with the last error of a connection. Returns false, for `return tellFailure(...)`.
bool tellFailure(Messages& messages, QStringView what, const storage::Connection& connection);

// Tells the user that the row to be changed was deleted meanwhile.
void tellRowGone(Messages& messages);

} // namespace core
