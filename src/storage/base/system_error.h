#pragma once

#include "storage/base/error.h"

#include <optional>

namespace storage {

// The kind that a refusal of the operating system (an errno) is; nullopt when the number says
// nothing about the disk or the rights.
std::optional<ErrorKind> kindOfSystemError(int number);

// Why nothing can be made in a folder: ReadOnly or Full, with a message and the system's words;
// nullopt when the system makes a file there (one without a name, which is gone at once).
std::optional<Error> folderRefusal(const QString& folder);

// What a folder that may not be written to is told as.
Error folderNotWritable(int number);

} // namespace storage
