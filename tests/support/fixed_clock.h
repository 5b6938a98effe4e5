#pragma once

#include "core/data/clock.h"

#include <QDateTime>

// A clock that stands still until the test moves it.
class FixedClock : public core::Clock {
public:
    explicit FixedClock(QDate date = QDate(2024, 4, 15), QTime time = QTime(10, 30))
        : m_now(date, time, Qt::UTC)
    {
    }

    QDateTime now() const override { return m_now; }
    void set(QDate date, QTime time = QTime(10, 30)) { m_now = QDateTime(date, time, Qt::UTC); }
    void advanceMsecs(qint64 msecs) { m_now = m_now.addMSecs(msecs); }

private:
    QDateTime m_now;
};
