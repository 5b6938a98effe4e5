#pragma once

#include <QString>

namespace bench {

// A copy of a data file to write into; it goes with its lock file when it is out of use. Ends the
// program when it cannot be made.
class ScratchCopy {
public:
    // `name` tells copies of one file apart.
    ScratchCopy(const QString& original, const QString& name);
    ~ScratchCopy();
    ScratchCopy(const ScratchCopy&) = delete;
    ScratchCopy& operator=(const ScratchCopy&) = delete;

    const QString& path() const { return m_path; }

private:
    QString m_path;
};

} // namespace bench
