#include "repair/screens/upcyotei.h"

namespace repair {

upcyotei::upcyotei(RepairFile& file, records::Drafts& drafts, QDate day, QWidget* parent)
    : upyotei(file, drafts, day, parent)
{
}

upcyotei::upcyotei(RepairFile& file, records::Drafts& drafts, const records::KeptScheduleEntry& kept,
                   QWidget* parent)
    : upyotei(file, drafts, kept, parent)
{
}

} // namespace repair
