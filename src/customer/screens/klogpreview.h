#pragma once

#include "customer/data/customer_file.h"
#include "customer/data/logs.h"
#include "records/screens/logpreview.h"

namespace customer {

// The log preview beside the customer screen.
class klogpreview : public logpreview {
    Q_OBJECT

public:
    klogpreview(CustomerFile& file, QWidget* parent) : logpreview(file, logTable(), parent) {}
};

} // namespace customer
