#pragma once

#include "records/screens/upyotei.h"
#include "repair/data/repair_file.h"

namespace repair {

// The schedule editor of a repair file.
class upcyotei : public records::upyotei {
    Q_OBJECT

public:
    upcyotei(RepairFile& file, records::Drafts& drafts, QDate day, QWidget* parent);
    upcyotei(RepairFile& file, records::Drafts& drafts, const records::KeptScheduleEntry& kept,
             QWidget* parent);
};

} // namespace repair
