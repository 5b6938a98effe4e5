#pragma once

namespace core {

struct DataFileEntry;
struct Shared;

// Compacts the data file of a registry entry in its place, by way of "最適化.mdb" beside it. Tells
// the user what came of it; false when it failed: the file is in use, or a "最適化.mdb" is left
// over.
bool Optimise(Shared& shared, const DataFileEntry& entry);

} // namespace core
