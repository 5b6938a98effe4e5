#pragma once

#include "figures.h"

#include <QString>

namespace bench {

// The size of a data file against that of its rows, and its compaction against the bare engine's.
void measureWholeFile(Figures& figures, const QString& path, const QString& password);

} // namespace bench
