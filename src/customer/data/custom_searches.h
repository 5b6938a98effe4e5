#pragma once

#include "records/data/record_table.h"

// Stored searches of the customer file (カスタム検索).
namespace customer {

const records::RecordTable& customSearchTable();

} // namespace customer
