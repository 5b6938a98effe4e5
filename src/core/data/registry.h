#pragma once

#include "core/data/data_kind.h"

#include <QList>
#include <QString>

#include <optional>

namespace core {

struct Shared;

// One registered data file.
struct DataFileEntry {
    qint64 number = 0; // No of its row
    QString name;
    QString password; // empty for none
    DataKind kind = DataKind::Customer;

    bool operator==(const DataFileEntry& other) const = default;
};

// The registered files of a kind in ascending order of their names; nullopt when they cannot be
// read: the user has been told why.
std::optional<QList<DataFileEntry>> ListDataFiles(Shared& shared, DataKind kind);

// The same for choosing one to open; nullopt for the kind gives both kinds together.
std::optional<QList<DataFileEntry>> ListDataFilesForOpen(Shared& shared,
                                                         std::optional<DataKind> kind);

// Registers a new data file and copies the template to its place. False when nothing was written;
// the user is told either way.
bool AddDataFile(Shared& shared, DataKind kind, const QString& name, const QString& password);

// Rewrites the row and then renames the file. The user is told what came of it. False when the file
// could not be moved (the row is changed all the same) or nothing was written. A name that another
// entry of the kind bears is refused, and a file that another entry leads to stays where it is.
bool ChangeDataFile(Shared& shared, const DataFileEntry& selected, const QString& newName,
                    const QString& newPassword);

// Removes the row and the file after asking. False when the row is still there, or was gone before;
// a file that cannot be removed is not reported, and one that another entry leads to stays.
bool DeleteDataFile(Shared& shared, const DataFileEntry& selected);

// Whether a registered data file lies at that path, by whatever name it is reached; true too when
// the registry cannot be read.
bool isRegisteredFile(Shared& shared, const QString& path);

} // namespace core
