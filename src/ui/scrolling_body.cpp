#include "ui/scrolling_body.h"

#include "ui/window_placement.h"

#include <QApplication>
#include <QDialog>
#include <QScrollArea>
#include <QVBoxLayout>

namespace ui {
namespace {

void moveItem(QVBoxLayout& from, QVBoxLayout& to)
{
    QLayoutItem* const item = from.takeAt(0);
    if (QLayout* const layout = item->layout()) {
        layout->setParent(nullptr);
        to.addLayout(layout);
    } else if (QWidget* const widget = item->widget()) {
        to.addWidget(widget);
        delete item;
    } else {
        to.addItem(item);
    }
}

} // namespace

void scrollBody(QDialog& dialog)
{
    auto* const rows = qobject_cast<QVBoxLayout*>(dialog.layout());
    if (!rows || rows->count() < 2)
        return;
    const QSize wanted = dialog.sizeHint().expandedTo(dialog.size());
    auto* const area = new QScrollArea(&dialog);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    auto* const body = new QWidget;
    area->setWidget(body); // first, so that the way of the focus through the dialog stays
    auto* const inner = new QVBoxLayout(body);
    inner->setContentsMargins(0, 0, 0, 0);
    inner->setSpacing(rows->spacing());
    QList<int> stretches;
    for (int i = 0; i + 1 < rows->count(); ++i)
        stretches.append(rows->stretch(i));
    for (int i = 0; i < stretches.size(); ++i) {
        moveItem(*rows, *inner);
        inner->setStretch(i, stretches.at(i));
    }
    rows->insertWidget(0, area, 1);
    QObject::connect(qApp, &QApplication::focusChanged, area, [area](QWidget*, QWidget* now) {
        if (now && area->widget()->isAncestorOf(now))
            area->ensureWidgetVisible(now, 8, 8);
    });
    dialog.resize(wanted.boundedTo(roomFor(dialog)));
}

} // namespace ui
