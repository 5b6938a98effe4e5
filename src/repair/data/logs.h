#pragma once

#include "core/data/log_preview.h"

// Log entries of repair jobs (table 修理ログ).
namespace repair {

// The log as the preview window reads it.
const core::LogTable& logTable();

} // namespace repair
