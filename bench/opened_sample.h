#pragma once

#include "core/data/clock.h"
#include "core/data/messages.h"
#include "customer/data/customer_file.h"

#include <QDate>
#include <QString>

#include <optional>

namespace bench {

// Nobody is there to answer: whatever is said ends the run.
class NoMessages : public core::Messages {
public:
    core::Answer show(core::MessageStyle style, const QString& text, const QString& title,
                      const QString& details, core::DefaultButton button) override;
    std::optional<QString> askText(const QString& prompt, const QString& title,
                                   bool secret) override;
};

// Noon of the day that a sample was made for.
class SampleClock : public core::Clock {
public:
    explicit SampleClock(QDate today);
    QDateTime now() const override { return m_now; }

private:
    QDateTime m_now;
};

// A customer file as the program holds it. Ends the run when it cannot be opened.
class OpenedSample {
public:
    OpenedSample(const QString& path, QDate today);

    customer::CustomerFile& file() { return m_file; }

private:
    NoMessages m_messages;
    SampleClock m_clock;
    customer::CustomerFile m_file;
};

} // namespace bench
