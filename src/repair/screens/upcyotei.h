#pragma once

#include "records/screens/upyotei.h"

namespace repair {

// The schedule editor of a repair file.
class upcyotei : public records::upyotei {
    Q_OBJECT

public:
    upcyotei(const records::Desk& desk, const records::Opening& opening, QWidget* parent);
};

} // namespace repair
