#pragma once

#include <chrono>

namespace storage {

// A statement waits this long for other copies of the program, then fails with Busy.
inline constexpr std::chrono::milliseconds LongestWait{10'000};
// A wait of this length is shown to the user, so that no window freezes without a sign.
inline constexpr std::chrono::milliseconds UnnoticedWait{300};

// Is told of waits for other copies, in the middle of the statement that waits: it may use no
// connection.
class WaitWatcher {
public:
    virtual ~WaitWatcher() = default;
    // The wait goes on for longer than UnnoticedWait; once for each wait.
    virtual void waitGoesOn() = 0;
    // The wait, long or short, is over; the statement goes on or has failed.
    virtual void waitEnded(std::chrono::nanoseconds waited) = 0;
};

// Who watches the waits of the connections that this thread uses; null for nobody. The watcher has
// to outlive its watch.
void watchWaits(WaitWatcher* watcher);
WaitWatcher* waitWatcher();

// Shows the watcher, for as long as it lives, that the program works; waits that fall into this
// time are not told by themselves.
class ShownWork {
public:
    ShownWork();
    ~ShownWork();
    ShownWork(const ShownWork&) = delete;
    ShownWork& operator=(const ShownWork&) = delete;

private:
    WaitWatcher* m_watcher;
};

} // namespace storage
