#pragma once

#include "figures.h"

#include <QString>

namespace bench {

// Measures how long the saves of another process take at most while a recordset stands open over
// all log entries for 13 seconds, against the longest without it; and beside one with an order that
// no index gives, which has to be sorted when it is opened. Ends the run when a save is
// refused, or when the reader does not see each row that was there before exactly once.
void measureStandingReader(Figures& figures, const QString& path, const QString& password);

} // namespace bench
