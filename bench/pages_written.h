#pragma once

#include "figures.h"

#include <QDate>
#include <QString>

namespace bench {

// The pages that the adding of a customer, a case and a log entry writes into a data file. All is
// written into copies of it, which are removed again.
void measurePagesWritten(Figures& figures, const QString& path, const QString& password,
                         QDate today);

} // namespace bench
