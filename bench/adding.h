#pragma once

#include "measure.h"

#include <QDate>
#include <QString>

namespace bench {

// Times the adding of a customer against one transaction of the same statements on the bare engine.
// Both write into copies of the data file, which are removed again. `today` is the day that it was
// made for.
Times compareAdding(const QString& path, const QString& password, QDate today);

} // namespace bench
