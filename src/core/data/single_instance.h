#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

namespace core {

// Takes the lock that one copy of the program on this machine holds for a program folder, by
// whatever path the folder is reached; a killed copy leaves none. Null when another copy has it.
std::unique_ptr<QLockFile> lockInstance(const QString& programFolder);

} // namespace core
