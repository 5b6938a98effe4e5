#pragma once

#include "customer/data/customer_file.h"
#include "customer/shared/upyotei.h"

namespace customer {

// The schedule editor of a customer file.
class upkyotei : public upyotei {
    Q_OBJECT

public:
    upkyotei(CustomerFile& file, ui::Drafts& drafts, QDate day, QWidget* parent)
        : upyotei(file, drafts, day, parent)
    {
    }
    upkyotei(CustomerFile& file, ui::Drafts& drafts, const core::KeptScheduleEntry& kept,
             QWidget* parent)
        : upyotei(file, drafts, kept, parent)
    {
    }
};

} // namespace customer
