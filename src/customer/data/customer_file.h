#pragma once

#include "records/data/data_file.h"
#include "storage/connection.h"

#include <QString>

namespace customer {

// The open customer data file. All screens of the customer side use this one.
struct CustomerFile : records::DataFile {
    CustomerFile(core::Messages& toldTo, const core::Clock& timedBy);
};

// Opens a data file, shared or for this program alone, and brings it up to date. On failure the
// user is told why, the file stays closed and false is given.
bool OpenCustomerFile(CustomerFile& file, const QString& path, storage::Mode mode);
void CloseCustomerFile(CustomerFile& file);

} // namespace customer
