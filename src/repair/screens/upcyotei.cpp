#include "repair/screens/upcyotei.h"

namespace repair {

upcyotei::upcyotei(const records::Desk& desk, const records::Opening& opening, QWidget* parent)
    : upyotei(desk, opening, QStringLiteral("upcyotei"), parent)
{
}

} // namespace repair
