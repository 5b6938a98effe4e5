#include "records/screens/detail_window.h"

#include "ui/twips.h"
#include "ui/window_placement.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>

namespace records {

DetailWindow::DetailWindow(QWidget* parent) : QWidget(parent, Qt::Tool)
{
    setAttribute(Qt::WA_ShowWithoutActivating); // the keyboard stays with the list
}

void DetailWindow::moveToPlace(int left, int top)
{
    const QPoint kept(ui::pixelsFromTwips(left), ui::pixelsFromTwips(top));
    const QRect wanted(kept, size());
    QRect seen = ui::fitInto(ui::areaFor(*this, wanted), wanted);
    if (kept.isNull())
        seen.moveTopRight(screen()->availableGeometry().topRight());
    move(seen.topLeft());
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
