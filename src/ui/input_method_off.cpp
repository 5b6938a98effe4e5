#include "ui/input_method_off.h"

#include <QInputMethodQueryEvent>
#include <QWidget>

namespace ui {
namespace {

// Answers the platform's question itself: Qt 6.4 does not look at WA_InputMethodEnabled there.
class InputMethodOff : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::InputMethodQuery)
            return false;
        watched->event(event);
        static_cast<QInputMethodQueryEvent*>(event)->setValue(Qt::ImEnabled, false);
        return true;
    }
};

} // namespace

void switchInputMethodOff(QWidget& widget)
{
    widget.installEventFilter(new InputMethodOff(&widget));
}

} // namespace ui
