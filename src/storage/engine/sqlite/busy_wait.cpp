#include "storage/engine/sqlite/busy_wait.h"

#include "storage/base/waiting.h"

#include <QRandomGenerator>

#include <sqlite3.h>

#include <algorithm>
#include <ctime>
#include <thread>
#include <utility>

namespace storage::engine::sqlite {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr Milliseconds LongestNap{10};
constexpr Milliseconds ShortestNap{0.2};
constexpr Milliseconds WaitOfLongestNaps{40};
constexpr double NapsToLooks = 8; // so that looking leaves the machine to whoever writes
// Whoever had to wait so lately, and wrote so lately, steps back for so long.
constexpr Clock::duration Contended = 1s;
constexpr Clock::duration JustNow = 3ms;
constexpr Milliseconds StepBack{2};

// The wait that this thread is in. A statement may meet several locks; together they are one wait.
struct Wait {
    Clock::time_point since;
    bool running = false;
    bool shown = false;
    Milliseconds spent; // of this thread's work, when it looked last
};
thread_local Wait current;
thread_local Clock::time_point lastWait;

Milliseconds spentByThread()
{
    timespec spent{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &spent);
    return std::chrono::seconds(spent.tv_sec) + std::chrono::nanoseconds(spent.tv_nsec);
}

// Of random length, so that the copies do not look all at once.
void sleepAbout(Milliseconds mean)
{
    std::this_thread::sleep_for(mean * (0.5 + QRandomGenerator::system()->generateDouble()));
}

// Whoever looks more often gets a freed lock more often. So the naps become shorter with the wait:
// the newcomer looks now and then, who has waited longest looks most, and nobody starves.
Milliseconds napAfter(Milliseconds waited)
{
    if (waited <= WaitOfLongestNaps)
        return LongestNap;
    const double part = WaitOfLongestNaps / waited;
    return std::max(ShortestNap, LongestNap * part * part);
}

// Gives 0 when the engine is to give up.
int onBusy(void* handle, int /*times*/)
{
    const Clock::time_point now = Clock::now();
    if (!current.running)
        current = {now, true, false, spentByThread()};
    const Clock::duration waited = now - current.since;
    if (waited >= LongestWait)
        return 0;
    if (!current.shown && waited >= UnnoticedWait) {
        current.shown = true;
        if (WaitWatcher* const watcher = waitWatcher())
            watcher->waitGoesOn();
    }
    // A commit that waits for readers keeps all others waiting.
    const bool writes =
        sqlite3_txn_state(static_cast<sqlite3*>(handle), "main") == SQLITE_TXN_WRITE;
    const Milliseconds spent = spentByThread();
    const Milliseconds look = spent - std::exchange(current.spent, spent);
    const Milliseconds least = std::clamp(look * NapsToLooks, ShortestNap, LongestNap);
    sleepAbout(writes ? ShortestNap : std::max(least, napAfter(waited)));
    return 1;
}

} // namespace

void waitForLocks(sqlite3* handle)
{
    sqlite3_busy_handler(handle, onBusy, handle);
}

int step(sqlite3_stmt* statement)
{
    const EndOfWait end;
    return sqlite3_step(statement);
}

void letOthersFirst(Clock::time_point lastWrite)
{
    const Clock::time_point now = Clock::now();
    if (now - lastWait >= Contended || now - lastWrite >= JustNow)
        return;
    current = {now, true, false, spentByThread()};
    sleepAbout(StepBack);
}

EndOfWait::~EndOfWait()
{
    if (!current.running)
        return;
    current.running = false;
    lastWait = Clock::now();
    if (WaitWatcher* const watcher = waitWatcher())
        watcher->waitEnded(lastWait - current.since);
}

} // namespace storage::engine::sqlite
