#pragma once

#include "figures.h"

#include <QString>

namespace bench {

// What comes after the first page of a search inside the texts of customers or cases: its second
// page, its count and all its other pages.
void measureSearches(Figures& figures, const QString& path, const QString& password);

} // namespace bench
