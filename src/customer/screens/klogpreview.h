#pragma once

#include "customer/data/customer_file.h"
#include "customer/data/settings.h"
#include "customer/shared/logpreview.h"

namespace customer {

// The log preview beside the customer screen.
class klogpreview : public logpreview {
    Q_OBJECT

public:
    klogpreview(CustomerFile& file, const Settings& settings, QWidget* parent);
};

} // namespace customer
