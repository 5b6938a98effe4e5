#pragma once

#include "customer/data/customer_file.h"

namespace customer {

// Rows of a table in all ("合計:"); 0 when they cannot be counted.
qint64 countCustomers(CustomerFile& file);
qint64 countCases(CustomerFile& file);
qint64 countLogs(CustomerFile& file);
// Cases that are still open (判定 = 続行) and whose customer is there.
qint64 countOpenCases(CustomerFile& file);

} // namespace customer
