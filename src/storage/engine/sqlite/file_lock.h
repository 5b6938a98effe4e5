#pragma once

#include "storage/engine/engine.h"

namespace storage::engine::sqlite {

// The advisory lock on "NAME.ldb" beside a data file (found by canonical path). The lock file
// itself stays.
class FileLock final : public Lock {
public:
    // As Engine::lock().
    static std::unique_ptr<Lock> acquire(const QString& dataFile, LockKind kind, Error* error);

    explicit FileLock(int descriptor) : m_descriptor(descriptor) {} // owned from now on
    ~FileLock() override;

    bool raise() override;
    bool lower() override;
    bool isHeld() const override { return m_held; }

private:
    int m_descriptor = -1;
    bool m_held = false;
};

} // namespace storage::engine::sqlite
