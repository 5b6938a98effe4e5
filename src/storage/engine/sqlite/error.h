#pragma once

#include "storage/base/error.h"

#include <QString>

struct sqlite3;

namespace storage::engine::sqlite {

// What the engine said last, as an engine-neutral kind with a message for the user; the engine's
// own words are in the details.
Error lastError(sqlite3* handle);

// An error of the kind; `detail`, for the user to read too, stands behind the kind's own
// message.
Error makeError(ErrorKind kind, const QString& detail = {});

} // namespace storage::engine::sqlite
