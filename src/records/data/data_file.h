#pragma once

#include "records/data/database.h"
#include "records/data/fields.h"

#include <QString>
#include <QStringList>

namespace storage::schema {
struct Definition;
}

namespace records {

// What tells one kind of data file from the other when it is opened.
struct DataFileForm {
    QString table;           // a table that only this kind has
    QString refusal;         // told when it is missing
    QStringList statements;  // bring version 3.0.0 to 3.1.1
    FieldValues newSettings; // of the settings row, written by the upgrade
    const storage::schema::Definition& definition;
};

// A base, so that it is there before Database refers to it.
struct OwnConnection {
    storage::Connection ownConnection;
};

// An open data file. The customer file and the repair file each derive their own.
struct DataFile : OwnConnection, Database {
    const DataFileForm& form; // lives as long as the program

    DataFile(core::Messages& toldTo, const core::Clock& timedBy, const DataFileForm& ofKind)
        : Database{toldTo, timedBy, ownConnection}, form(ofKind)
    {
    }
};

// Opens a data file and brings it up to date. On failure the user is told why, the file stays
// closed and false is given.
bool openDataFile(DataFile& file, const QString& path, storage::Mode mode);

} // namespace records
