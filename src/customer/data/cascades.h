#pragma once

#include "core/data/record_key.h"
#include "customer/data/customer_file.h"

namespace customer {

// What is deleted together.
enum class Cascade {
    Customer, // with cases, logs, deliveries, leases, shortcuts and free-item values
    Case,     // with logs and shortcuts
    Delivery, // with leases
    FreeItem, // with its values
    Log,
    Lease,
    ScheduleEntry,
    FreeItemValue,
    CustomSearch,
    CustomerShortcut,
    CaseShortcut,
    PrintTables // all rows of the three print work tables; takes no key
};

// Deletes a record with all that belongs to it, in one transaction: all or nothing. False when the
// engine refused.
bool runCascade(CustomerFile& file, Cascade cascade, const core::RecordKey& key = {});

} // namespace customer
