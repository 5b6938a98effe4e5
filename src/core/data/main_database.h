#pragma once

#include <QString>

namespace core {

struct Shared;

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
