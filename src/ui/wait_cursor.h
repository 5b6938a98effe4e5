#pragma once

#include "storage/base/waiting.h"

namespace ui {

// Shows the busy cursor over all windows while a statement waits for another copy of the program
// for longer than a moment, and takes it away when the wait is over. At work as long as it lives,
// for the thread that made it: the one that draws.
class WaitCursor : public storage::WaitWatcher {
public:
    WaitCursor();
    ~WaitCursor() override;
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

    void waitGoesOn() override;
    void waitEnded(std::chrono::nanoseconds waited) override;

private:
    bool m_shown = false;
};

} // namespace ui
