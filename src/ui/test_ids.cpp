#include "ui/test_ids.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace ui {
namespace {

class TestIds : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* const widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Polish && widget) {
            name(*widget);
            // A pane that is used more than once gets its controls' names when it is set up.
            connect(widget, &QObject::objectNameChanged, this, [widget] { name(*widget); });
        }
        return false;
    }

private:
    static void name(QWidget& widget)
    {
        if (!widget.objectName().isEmpty())
            widget.setAccessibleDescription(u'#' + widget.objectName());
    }
};

} // namespace

void offerTestIds(QApplication& application)
{
    if (qEnvironmentVariable("CORVANE_TEST_IDS") == u"1")
        application.installEventFilter(new TestIds(&application));
}

} // namespace ui
