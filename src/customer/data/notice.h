#pragma once

#include "customer/data/customer_file.h"

#include <QStringList>

namespace customer {

// The lines of the notice that is shown after a data file was opened: open cases, leases that end
// in this month, today's schedule, and where the lists are to be had.
QStringList noticeLines(CustomerFile& file);

} // namespace customer
