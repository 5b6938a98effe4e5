#pragma once

#include <chrono>

struct sqlite3;
struct sqlite3_stmt;

namespace storage::engine::sqlite {

// From now on statements of this handle wait for other copies' locks (waiting.h). The engine says
// when a wait begins, never when it ends: whatever may wait runs through step() or under an
// EndOfWait.
void waitForLocks(sqlite3* handle);

// One step of a statement; a wait that it began has ended when it returns.
int step(sqlite3_stmt* statement);

// Before the write lock is asked for, under an EndOfWait: where copies wait for each other, whoever
// wrote just now would have the lock again before any of them looked.
void letOthersFirst(std::chrono::steady_clock::time_point lastWrite);

// Ends the wait, if there was one, of what was done in its scope.
class EndOfWait {
public:
    EndOfWait() = default;
    ~EndOfWait();
    EndOfWait(const EndOfWait&) = delete;
    EndOfWait& operator=(const EndOfWait&) = delete;
};

} // namespace storage::engine::sqlite
