#pragma once

#include "customer/shared/upyotei.h"

namespace customer {

// The schedule editor of a customer file.
class upkyotei : public upyotei {
    Q_OBJECT

public:
    upkyotei(core::DataFile& file, ui::Drafts& drafts, QDate day, QWidget* parent)
        : upyotei(file, drafts, day, parent)
    {
    }
    upkyotei(core::DataFile& file, ui::Drafts& drafts, const core::KeptScheduleEntry& kept,
             QWidget* parent)
        : upyotei(file, drafts, kept, parent)
    {
    }
};

} // namespace customer
