#pragma once

#include <QDate>
#include <QString>

namespace bench {

// The first pages of the lists of customers, cases and log entries, as the main screen reads them,
// against hand-written statements on the bare engine. `today` is the day that the file was made
// for. False when a figure is over its limit.
bool measureCustomerLists(const QString& path, const QString& password, QDate today);

} // namespace bench
