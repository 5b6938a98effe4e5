#pragma once

#include "core/data/numbering.h"

namespace customer {

// The kinds of numbered records of a customer file.
enum class Kind {
    Customer = 1,
    Case,
    Log,
    Delivery,
    Lease,
    CustomerShortcut,
    CaseShortcut,
    FreeItem,
    ScheduleEntry,
    CustomSearch
};

const core::IdKind& idKind(Kind kind);

} // namespace customer
