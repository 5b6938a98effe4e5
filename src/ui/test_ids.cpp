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
        if (event->type() == QEvent::Polish && watched->isWidgetType()
            && !watched->objectName().isEmpty()) {
            static_cast<QWidget*>(watched)->setAccessibleDescription(u'#' + watched->objectName());
        }
        return false;
    }
};

} // namespace

void offerTestIds(QApplication& application)
{
    if (qEnvironmentVariable("CORVANE_TEST_IDS") == u"1")
        application.installEventFilter(new TestIds(&application));
}

} // namespace ui
