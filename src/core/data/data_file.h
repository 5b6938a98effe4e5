#pragma once

#include "storage/connection.h"
#include "storage/value.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

namespace storage::schema {
struct Definition;
}

namespace core {

class Clock;
class Messages;

// Columns of one row and what is written into them, in this order.
using FieldValues = QList<std::pair<QString, storage::Value>>;

// What tells one kind of data file from the other when it is opened.
struct DataFileForm {
    QString table;           // a table that only this kind has
    QString refusal;         // told when it is missing
    QStringList statements;  // bring version 3.0.0 to 3.1.1
    FieldValues newSettings; // of the settings row, written by the upgrade
    const storage::schema::Definition& definition;
};

// An open data file with those whom an operation on its rows talks to. The customer file and the
// repair file each derive their own.
struct DataFile {
    Messages& messages;
    const Clock& clock;
    const DataFileForm& form; // lives as long as the program
    storage::Connection connection;

    DataFile(Messages& toldTo, const Clock& timedBy, const DataFileForm& ofKind)
        : messages(toldTo), clock(timedBy), form(ofKind)
    {
    }
};

// Opens a data file and brings it up to date. On failure the user is told why, the file stays
// closed and false is given.
bool openDataFile(DataFile& file, const QString& path, storage::Mode mode);

// Brings an open file of version 3.0.0 to 3.1.1, all of it or nothing; leaves files of any other
// version alone. A statement that fails by itself (a column that is there already) is skipped.
// False when the file or the machine does not allow it; the file is then as it was.
bool upgradeDataFile(DataFile& file);

} // namespace core
