#pragma once

#include "records/data/record_table.h"

// Free items of customers: their names (自由項目名) and each customer's values (項目内容).
namespace customer {

// The values of an item go with it.
const records::RecordTable& freeItemTable();
// Deletes one value.
const records::Cascade& freeItemValueCascade();

} // namespace customer
