#pragma once

#include "records/screens/logpreview.h"
#include "repair/data/repair_file.h"

namespace repair {

// The log preview beside the repair screen.
class clogpreview : public records::logpreview {
    Q_OBJECT

public:
    clogpreview(RepairFile& file, QWidget* parent);
};

} // namespace repair
