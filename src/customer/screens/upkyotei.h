#pragma once

#include "records/screens/upyotei.h"

namespace customer {

// The schedule editor of a customer file.
class upkyotei : public records::upyotei {
    Q_OBJECT

public:
    upkyotei(const records::Desk& desk, const records::Opening& opening, QWidget* parent)
        : upyotei(desk, opening, QStringLiteral("upkyotei"), parent)
    {
    }
};

} // namespace customer
