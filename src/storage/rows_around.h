#pragma once

#include "storage/engine/session.h"
#include "storage/sql/place.h"

#include <optional>
#include <vector>

namespace storage {

// A row of a whole table in its order, with the rows beside it.
struct RowsAround {
    bool exists = false;           // whether there is such a row
    qint64 position = 0;           // from 0
    qint64 first = 0;              // the position of the first of `addresses`
    std::vector<qint64> addresses; // in order
    bool reachesEnd = false;       // whether the last of them is the last row of all
};

// Counts the rows before the one with this address and reads up to `window` rows on each side of
// it. Nothing when the engine failed, and where the order does not tell the row from others.
std::optional<RowsAround> rowsAround(engine::Session& session, const sql::Finding::Place& place,
                                     qint64 address, qint64 window);

} // namespace storage
