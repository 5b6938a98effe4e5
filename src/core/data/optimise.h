#pragma once

#include <functional>

namespace core {

struct DataFileEntry;
struct Shared;

// Compacts the data file of a registry entry in its place, by way of "最適化.mdb" beside it. Tells
// the user what came of it, after `whenOver`, which sets the screen's pointer back; false when it
// failed: the file is in use, or a "最適化.mdb" is left over, which is then named.
bool Optimise(Shared& shared, const DataFileEntry& entry, const std::function<void()>& whenOver);

} // namespace core
