#include "core/data/clock.h"

#include "text/dates.h"

namespace core {

QDateTime SystemClock::now() const
{
    return text::civil(QDateTime::currentDateTime());
}

} // namespace core
