#pragma once

#include "storage/base/error.h"
#include "storage/schema/definitions.h"

#include <optional>

namespace programs {

// Writes the empty main.mdb, Corvane.mdb and Care.mdb into a folder, which is made when it is
// missing. Exists when one of them is there.
std::optional<storage::Error> writeTemplates(const QString& folder,
                                             storage::schema::Version version);

// Makes a folder with those above it; ReadOnly when that cannot be done.
std::optional<storage::Error> makeFolder(const QString& folder);

// One line for the standard error: the program, what it was about, and why it failed.
void printError(const QString& subject, const storage::Error& error);

} // namespace programs
