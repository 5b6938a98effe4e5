#pragma once

#include "records/data/data_file.h"
#include "storage/connection.h"

#include <QString>

namespace repair {

// The open repair data file. All screens of the repair side use this one.
struct RepairFile : records::DataFile {
    RepairFile(core::Messages& toldTo, const core::Clock& timedBy);
};

// Opens a data file, shared or for this program alone, and brings it up to date. On failure the
// user is told why, the file stays closed and false is given.
bool OpenRepairFile(RepairFile& file, const QString& path, storage::Mode mode);
void CloseRepairFile(RepairFile& file);

} // namespace repair
