#include "storage/engine/sqlite/busy_wait.h"

#include "storage/waiting.h"

#include <QRandomGenerator>

#include <sqlite3.h>

#include <algorithm>
#include <thread>

namespace storage::engine::sqlite {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;
using std::chrono::microseconds;

// The wait that this thread is in. A statement may meet several locks; together they are one wait.
struct Wait {
    Clock::time_point since;
    bool running = false;
    bool shown = false;
};
thread_local Wait current;

// Whoever looks more often gets a freed lock more often. So the naps become shorter with the wait:
// the newcomer looks now and then, who came first looks most, and nobody starves. A random length
// keeps the copies from looking all at once.
microseconds nap(Clock::duration waited)
{
    constexpr microseconds Shortest = 200us;
    constexpr microseconds Longest = 4ms;
    constexpr auto Halving = 100ms; // waits of this length take the longest naps
    const auto waitedFor = std::max<Clock::duration>(waited, 1ms);
    const auto mean = std::clamp<microseconds>(
        microseconds(Longest.count() * Clock::duration(Halving).count() / waitedFor.count()),
        Shortest, Longest);
    const auto jitter = static_cast<quint32>(mean.count());
    return mean / 2 + microseconds(QRandomGenerator::system()->bounded(jitter));
}

// Gives 0 when the engine is to give up.
int onBusy(void* /*handle*/, int /*times*/)
{
    const Clock::time_point now = Clock::now();
    if (!current.running)
        current = {now, true, false};
    const Clock::duration waited = now - current.since;
    if (waited >= LongestWait)
        return 0;
    if (!current.shown && waited >= UnnoticedWait) {
        current.shown = true;
        if (WaitWatcher* const watcher = waitWatcher())
            watcher->waitGoesOn();
    }
    std::this_thread::sleep_for(nap(waited));
    return 1;
}

} // namespace

void waitForLocks(sqlite3* handle)
{
    sqlite3_busy_handler(handle, onBusy, nullptr);
}

int step(sqlite3_stmt* statement)
{
    const EndOfWait end;
    return sqlite3_step(statement);
}

EndOfWait::~EndOfWait()
{
    if (!current.running)
        return;
    current.running = false;
    if (WaitWatcher* const watcher = waitWatcher())
        watcher->waitEnded(Clock::now() - current.since);
}

} // namespace storage::engine::sqlite
