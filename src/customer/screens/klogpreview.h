#pragma once

#include "customer/data/logs.h"
#include "records/screens/logpreview.h"

namespace customer {

// The log preview beside the customer screen.
class klogpreview : public records::logpreview {
    Q_OBJECT

public:
    klogpreview(records::DataFile& file, QWidget* parent)
        : logpreview(file, previewedLogs(), parent)
    {
    }
};

} // namespace customer
