#pragma once

#include "records/data/log_preview.h"

// Log entries of repair jobs (table 修理ログ).
namespace repair {

const records::RecordTable& logTable();
// The log as the preview window reads it.
const records::LogTable& previewedLogs();

} // namespace repair
