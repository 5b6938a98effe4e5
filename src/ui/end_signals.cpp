#include "ui/end_signals.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace ui {
namespace {

constexpr std::array Signals{SIGTERM, SIGINT, SIGHUP};

// In a handler hardly anything may be done: it wakes the event loop.
std::array<int, 2> pipeEnds{-1, -1};

void wake(int /*signal*/)
{
    const char byte = 0;
    (void)!write(pipeEnds[1], &byte, 1);
}

} // namespace

EndSignals::EndSignals()
{
    if (pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto* const notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &EndSignals::end);
    for (const int each : Signals)
        std::signal(each, wake);
}

EndSignals::~EndSignals()
{
    for (const int each : Signals)
        std::signal(each, SIG_DFL);
    for (int& end : pipeEnds) {
        close(end);
        end = -1;
    }
}

void EndSignals::end()
{
    char byte = 0;
    (void)!read(pipeEnds[0], &byte, 1);
    QGuiApplication::inputMethod()->commit();
    QCoreApplication::exit();
}

} // namespace ui
