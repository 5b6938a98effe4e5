#pragma once

#include <QString>

namespace storage {

enum class ErrorKind {
    Syntax,     // the statement's text is refused
    Name,       // a table or column that is not there, or an ambiguous one
    Type,       // operands that do not fit together, a value that does not fit its column
    Constraint, // a key that is there already, and the like
    Busy,       // another copy held the file longer than the timeout
    InUse,      // the file is open elsewhere and exclusive use was asked, or the other way round
    Missing,    // the file or its folder is not there
    Moved,      // the open file was moved, renamed or deleted since it was opened
    Unreadable, // wrong password, damaged, or no file of this program
    ReadOnly,   // the file or its folder cannot be written
    Full,       // the disk is full
    Gone,       // the row was changed or deleted since it was read
    State,      // the object is not open, has no current row, and the like
    Exists,     // the name to be created is taken
    Other       // anything else; the engine's own words are in the details
};

// Why a step failed. The message is Japanese, for the user to read.
struct Error {
    ErrorKind kind = ErrorKind::Other;
    QString message = {};   // what is wrong
    int position = -1;      // offset into `statement` in UTF-16 units, -1 when it has none
    QString statement = {}; // the statement that failed, empty when it was none
    QString details = {};   // the engine's or the system's own words, empty when there are none
};

} // namespace storage
