#include "repair/screens/clogpreview.h"

#include "repair/data/logs.h"

namespace repair {

clogpreview::clogpreview(RepairFile& file, QWidget* parent)
    : logpreview(file, previewedLogs(), parent)
{
}

} // namespace repair
