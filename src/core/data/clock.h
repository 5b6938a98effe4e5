#pragma once

#include <QDateTime>

namespace core {

// The present moment as civil time (Qt::UTC-tagged local time, so that arithmetic knows no summer
// time).
class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;
    QDate today() const { return now().date(); }
};

// The machine's clock in its time zone.
class SystemClock : public Clock {
public:
    QDateTime now() const override;
};

// One reading of a clock: all that belongs together gets the same moment.
class StandingClock : public Clock {
public:
    explicit StandingClock(const Clock& clock) : m_now(clock.now()) {}
    QDateTime now() const override { return m_now; }

private:
    QDateTime m_now;
};

} // namespace core
