#pragma once

#include "figures.h"

#include <QDate>
#include <QString>

namespace bench {

// Finding the position of a record in the lists of customers and of cases and reading its page,
// against turning to that page. `today` is the day that the file was made for.
void measurePositions(Figures& figures, const QString& path, QDate today);

} // namespace bench
