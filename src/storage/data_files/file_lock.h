#pragma once

#include "storage/error.h"

#include <QString>

#include <optional>

namespace storage::data_files {

enum class LockKind { Shared, Exclusive };

// The advisory lock on "NAME.ldb" beside a data file (found by canonical path). Held until
// destroyed; a killed process leaves none. The lock file itself stays.
class FileLock {
public:
    // Takes the lock without waiting. InUse when another lock stands against it, also one of this
    // process; Missing when the folder is not there; ReadOnly, Full or Other when the lock file
    // cannot be made.
    static std::optional<FileLock> acquire(const QString& dataFile, LockKind kind, Error* error);

    // Turns a shared lock into an exclusive one without waiting, and back; false when another
    // copy's lock stands against it. In between the old lock is given up for a moment, so another
    // copy can come first: then the lock is no longer held.
    bool raise();
    bool lower();
    bool isHeld() const { return m_held; }

    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;
    ~FileLock();

private:
    explicit FileLock(int descriptor) : m_descriptor(descriptor) {}

    int m_descriptor = -1;
    bool m_held = false;
};

} // namespace storage::data_files
