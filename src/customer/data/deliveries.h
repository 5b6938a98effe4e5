#pragma once

#include "records/data/record_table.h"

// Deliveries to customers (納品リスト) and their leases (リースリスト).
namespace customer {

// A delivery belongs to a customer; its leases go with it.
const records::RecordTable& deliveryTable();
// A lease hangs on a delivery and, with it, on its customer.
const records::RecordTable& leaseTable();

} // namespace customer
