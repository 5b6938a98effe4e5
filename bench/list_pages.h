#pragma once

#include "figures.h"

#include <QDate>
#include <QString>

namespace bench {

// The first, the middle and the last page of the lists of customers and of cases in every order,
// against the quickest of the hand-written ways to the same rows. `today` is the day that the file
// was made for.
void measureListPages(Figures& figures, const QString& path, const QString& password, QDate today);

} // namespace bench
