#include "storage/base/waiting.h"

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

ShownWork::ShownWork() : m_watcher(waitWatcher())
{
    if (m_watcher)
        m_watcher->waitGoesOn();
    watchWaits(nullptr);
}

ShownWork::~ShownWork()
{
    watchWaits(m_watcher);
    if (m_watcher)
        m_watcher->waitEnded({});
}

} // namespace storage
