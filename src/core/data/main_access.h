#pragma once

#include <QStringView>

namespace core {

struct Shared;

// Every routine that reads or writes main.mdb asks this first. True when the file is open, still
// lies in its place and can be read. Else it is opened anew, with the version check and the upgrade
// of the start; when that fails too, the user is told why and where it lies, and false is given. So
// the program works as soon as the cause is gone.
bool reachMainDatabase(Shared& shared);

// Whether it is so now; opens nothing and tells nobody.
bool isMainDatabaseOpen(Shared& shared);

// Says in a message box what could not be done in main.mdb, where it lies and why its last step
// failed. Returns false, for `return tellMainDatabaseFailed(...)`.
bool tellMainDatabaseFailed(Shared& shared, QStringView what);

} // namespace core
