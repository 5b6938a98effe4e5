#pragma once

#include "storage/connection.h"

// Takes away what a file of today's format has beyond the one before it, which must be open. Its
// columns are to be made without marks, or with those of the former program's indexes.
void makeFormerFormat(storage::Connection& file);
// The names of the indexes that are ours, in order; and whether the file is of the former format.
QStringList indexNames(storage::Connection& file);
bool hasFormerFormat(const storage::Connection& file);
// How the engine goes about a statement's rows, one step a line.
QStringList planOf(storage::Connection& file, const QString& statement);
