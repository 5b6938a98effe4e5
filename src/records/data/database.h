#pragma once

#include "storage/connection.h"

namespace core {
class Clock;
class Messages;
} // namespace core

namespace records {

// An open database whose records are read and written, with those whom an operation on them talks
// to. A data file is one; the application database with its masters is another. All of it lives
// longer than what works with it.
struct Database {
    core::Messages& messages;
    const core::Clock& clock;
    storage::Connection& connection;
};

} // namespace records
