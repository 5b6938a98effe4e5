#pragma once

#include <QtGlobal>

namespace bench {

// Counts what the engine writes into data files that are opened while it lives: a file layer
// between the encryption and the operating system's, which hands everything on. There can be one of
// them at a time. Files that were opened through it are closed before it goes.
class WriteCounter {
public:
    WriteCounter();
    ~WriteCounter();
    WriteCounter(const WriteCounter&) = delete;
    WriteCounter& operator=(const WriteCounter&) = delete;

    // Bytes written since it was made, those of journals left out.
    qint64 bytes() const;
};

} // namespace bench
