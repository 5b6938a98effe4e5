#pragma once

#include "storage/base/error.h"
#include "storage/engine/location.h"

#include <QByteArray>
#include <QString>

#include <optional>

// Data files as things: each operation runs under the file's exclusive lock and gives the reason
// when it fails, nullopt when it succeeded. Where two locations are given, one engine keeps both.
namespace storage::data_files {

// Whether the file is there.
bool exists(const Location& file);
// Tells the file at a location from every other one, by whatever names they are reached (another
// letter case, a link); empty when there is none. Looks at the file without opening it.
QByteArray identity(const Location& file);
// Copies a template to a new file. Exists when the file or its "-journal" is there.
std::optional<Error> create(const Location& source, const Location& file);
// Gives the file a new name; a journal left by a crash is first rolled back into it. Missing when
// the old file is not there, Exists when the new one is, InUse when a copy has it open.
std::optional<Error> rename(const Location& from, const Location& to, const QString& password);
// Removes the file and its journal.
std::optional<Error> remove(const Location& file);
// Compacts `source` into `target`, which must not be there; the cipher and its password stay. The
// source is not touched.
std::optional<Error> compact(const Location& source, const Location& target,
                             const QString& password);
// Compacts the file into `draft`, which must not be there, and puts the draft into the file's place
// in one step, all under one lock: nothing written meanwhile is lost, and at every moment a whole
// file bears the name. When it fails nothing of the file is lost and the draft is gone; a left-over
// draft (Exists) stays.
std::optional<Error> compactInPlace(const Location& file, const Location& draft,
                                    const QString& password);

} // namespace storage::data_files
