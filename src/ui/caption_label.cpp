#include "ui/caption_label.h"

#include "ui/paged_list_model.h"
#include "ui/plain_tip.h"

namespace ui {

CaptionLabel::CaptionLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void CaptionLabel::setCaption(const QString& caption)
{
    m_caption = oneLine(caption);
    setAccessibleName(m_caption);
    cut();
}

void CaptionLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    cut();
}

void CaptionLabel::cut()
{
    const QString shown = fontMetrics().elidedText(m_caption, Qt::ElideRight, width());
    setText(shown);
    setToolTip(shown == m_caption ? QString() : plainTip(m_caption));
}

} // namespace ui
