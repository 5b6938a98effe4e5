#pragma once

#include "measure.h"

#include <QString>

namespace bench {

// Times the adding of a customer against one transaction of the same statements on the bare engine.
// Both write into copies of the data file, which are removed again.
Times compareAdding(const QString& path, const QString& password);

} // namespace bench
