#pragma once

#include "figures.h"

#include <QDate>
#include <QString>

namespace bench {

// The first pages of the lists of customers, cases and log entries, as the main screen reads them,
// against hand-written statements on the bare engine. `today` is the day that the file was made
// for.
void measureCustomerLists(Figures& figures, const QString& path, const QString& password,
                          QDate today);

} // namespace bench
