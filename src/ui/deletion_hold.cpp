#include "ui/deletion_hold.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace ui {

DeletionHold::DeletionHold()
{
    for (QWidget* const window : QApplication::topLevelWidgets())
        window->installEventFilter(this);
}

DeletionHold::~DeletionHold()
{
    for (const QPointer<QObject>& window : m_putOff) {
        if (window)
            window->deleteLater();
    }
}

bool DeletionHold::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::DeferredDelete)
        return QObject::eventFilter(watched, event);
    m_putOff.emplace_back(watched);
    return true;
}

} // namespace ui
