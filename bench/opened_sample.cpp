#include "opened_sample.h"

#include "bare_file.h"

#include "text/dates.h"

namespace bench {

core::Answer NoMessages::show(core::MessageStyle /*style*/, const QString& text,
                              const QString& /*title*/, const QString& /*details*/,
                              core::DefaultButton /*button*/)
{
    giveUp(text);
}

std::optional<QString> NoMessages::askText(const QString& prompt, const QString& /*title*/,
                                           bool /*secret*/)
{
    giveUp(prompt);
}

SampleClock::SampleClock(QDate today) : m_now(text::civil(today, QTime(12, 0))) {}

OpenedSample::OpenedSample(const QString& path, QDate today)
    : m_clock(today), m_file(m_messages, m_clock)
{
    if (!customer::OpenCustomerFile(m_file, path, storage::Mode::ReadWrite))
        giveUp(path);
}

} // namespace bench
