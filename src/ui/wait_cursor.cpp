#include "ui/wait_cursor.h"

#include <QCursor>
#include <QGuiApplication>

namespace ui {

WaitCursor::WaitCursor()
{
    storage::watchWaits(this);
}

WaitCursor::~WaitCursor()
{
    storage::watchWaits(nullptr);
}

void WaitCursor::waitGoesOn()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    m_shown = true;
}

void WaitCursor::waitEnded(std::chrono::nanoseconds /*waited*/)
{
    if (m_shown)
        QGuiApplication::restoreOverrideCursor();
    m_shown = false;
}

} // namespace ui
