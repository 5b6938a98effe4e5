#pragma once

struct sqlite3;
struct sqlite3_stmt;

namespace storage::engine::sqlite {

// From now on statements of this handle wait for other copies' locks (waiting.h). The engine says
// when a wait begins, never when it ends: whatever may wait runs through step() or under an
// EndOfWait.
void waitForLocks(sqlite3* handle);

// One step of a statement; a wait that it began has ended when it returns.
int step(sqlite3_stmt* statement);

// Ends the wait, if there was one, of what was done in its scope.
class EndOfWait {
public:
    EndOfWait() = default;
    ~EndOfWait();
    EndOfWait(const EndOfWait&) = delete;
    EndOfWait& operator=(const EndOfWait&) = delete;
};

} // namespace storage::engine::sqlite
