#pragma once

#include "customer/data/customer_file.h"
#include "records/screens/upyotei.h"

namespace customer {

// The schedule editor of a customer file.
class upkyotei : public upyotei {
    Q_OBJECT

public:
    upkyotei(CustomerFile& file, records::Drafts& drafts, QDate day, QWidget* parent)
        : upyotei(file, drafts, day, parent)
    {
    }
    upkyotei(CustomerFile& file, records::Drafts& drafts, const records::KeptScheduleEntry& kept,
             QWidget* parent)
        : upyotei(file, drafts, kept, parent)
    {
    }
};

} // namespace customer
