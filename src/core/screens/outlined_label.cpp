#include "core/screens/outlined_label.h"

#include "core/screens/brand_band.h"

#include <QPainter>
#include <QPainterPath>

namespace core {

void OutlinedLabel::paintEvent(QPaintEvent*)
{
    QPainterPath letters;
    letters.addText(0, 0, font(), text());
    const QRectF bounds = letters.boundingRect();
    letters.translate(4 - bounds.left(), (height() - bounds.height()) / 2 - bounds.top());

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(letters, QPen(BrandDark, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(letters, palette().color(QPalette::WindowText));
}

} // namespace core
