#include "storage/waiting.h"

namespace storage {

namespace {

thread_local WaitWatcher* watching = nullptr;

} // namespace

void watchWaits(WaitWatcher* watcher)
{
    watching = watcher;
}

WaitWatcher* waitWatcher()
{
    return watching;
}

} // namespace storage
