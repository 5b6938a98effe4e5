#pragma once

#include "records/data/keyed_text.h"

namespace customer {

// Empties the three tables that feed the printed pages; takes no key.
const records::Cascade& printTablesEmptied();

} // namespace customer
