#pragma once

#include <QString>

namespace core {

struct ProgramFolder;
struct Shared;

// The start-up. Refuses a second copy of the program on the same program folder with a message;
// else opens the application database, brings it to today's version and sets the shared state.
// Database steps that fail are skipped without a message. False when the program has to end at
// once; else the splash screen is to be shown.
bool Main(Shared& shared, const ProgramFolder& folder);

// Makes MainConnection and MainRecordset where they are not there yet, and opens main.mdb of the
// program folder anew.
void OpenMainDatabase(Shared& shared);
// Releases them.
void CloseMainDatabase(Shared& shared);

// Upgrades a main.mdb of version "3.0.0"; any other is left as it is.
void CheckVersion(Shared& shared);
// The upgrade: a step that fails is skipped, but a run that is cut short leaves the old version
// whole.
void UpgradeTo311(Shared& shared);

// Stores a statement in SqlText and runs it on MainConnection. False when the engine refused it.
bool RunStatement(Shared& shared, const QString& statement);

} // namespace core
