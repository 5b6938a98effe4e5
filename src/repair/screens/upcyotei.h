#pragma once

#include "customer/shared/upyotei.h"
#include "repair/data/repair_file.h"

namespace repair {

// The schedule editor of a repair file.
class upcyotei : public customer::upyotei {
    Q_OBJECT

public:
    upcyotei(RepairFile& file, ui::Drafts& drafts, QDate day, QWidget* parent);
    upcyotei(RepairFile& file, ui::Drafts& drafts, const core::KeptScheduleEntry& kept,
             QWidget* parent);
};

} // namespace repair
