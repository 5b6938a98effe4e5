#include "records/screens/detail_window.h"

#include "ui/twips.h"
#include "ui/window_placement.h"

#include <QCloseEvent>
#include <QKeyEvent>

namespace records {

DetailWindow::DetailWindow(QWidget* parent) : QWidget(parent, Qt::Tool)
{
    setAttribute(Qt::WA_ShowWithoutActivating); // the keyboard stays with the list
}

void DetailWindow::moveToPlace(int left, int top)
{
    const QPoint place(ui::pixelsFromTwips(left), ui::pixelsFromTwips(top));
    ui::placeOnScreen(*this, {place, size().grownBy(ui::frameOf(*this))});
}

void DetailWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void DetailWindow::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    if (event->isAccepted())
        emit closed();
}

} // namespace records
