#pragma once

#include "records/data/data_file.h"

namespace records {

// Brings an open file of version 3.0.0 to 3.1.1, all of it or nothing; leaves files of any other
// version alone. A statement that fails by itself (a column that is there already) is skipped.
// False when the file or the machine does not allow it; the file is then as it was.
bool upgradeDataFile(DataFile& file);

// Whether an open file is of the version that this program works with.
bool isOfPresentVersion(DataFile& file);

} // namespace records
