#pragma once

#include "storage/base/error.h"

#include <QByteArray>
#include <QString>

#include <optional>

// Single steps on whole files. Each gives the reason when it fails, nullopt when it succeeded, and
// has reached the disk when it returns.
namespace storage::engine::sqlite {

// Missing when it is not there.
std::optional<Error> readFile(const QString& path, QByteArray* bytes);
// Writes a file that was not there; Exists when it was. What could not be finished is removed.
std::optional<Error> writeNewFile(const QString& path, const QByteArray& bytes);
// Exists when the new name is taken.
std::optional<Error> moveFile(const QString& from, const QString& to);
// Gives a file the name of another, whose place, owner and rights it takes in one step: at every
// moment the name leads to the one or to the other, whole; so too on failure.
std::optional<Error> replaceFile(const QString& from, const QString& to);
// Missing when it is not there.
std::optional<Error> removeFile(const QString& path);
// Waits until an already written file is on the disk.
std::optional<Error> syncFile(const QString& path);

} // namespace storage::engine::sqlite
