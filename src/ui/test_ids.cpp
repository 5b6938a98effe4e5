#include "ui/test_ids.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

using namespace Qt::StringLiterals;

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
        const QString told = widget.accessibleDescription();
        describe(widget, told.startsWith(u'#') ? told.section(u' ', 1) : told);
    }
};

bool isOffered = false; // for as long as the program runs

} // namespace

void describe(QWidget& widget, const QString& description)
{
    const bool named = isOffered && !widget.objectName().isEmpty();
    const QString id = named ? u'#' + widget.objectName() : QString();
    const QString blank = named && !description.isEmpty() ? u" "_s : QString();
    widget.setAccessibleDescription(id + blank + description);
}

void offerTestIds(QApplication& application)
{
    isOffered = qEnvironmentVariable("CORVANE_TEST_IDS") == u"1";
    if (isOffered)
        application.installEventFilter(new TestIds(&application));
}

} // namespace ui
