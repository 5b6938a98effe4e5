#include "ui/selection_colour.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFocusEvent>

namespace ui {

SelectionColour::SelectionColour(QAbstractItemView& view) : QObject(&view), m_view(view)
{
    view.installEventFilter(this);
    show(view.hasFocus());
}

// A menu over the list does not take it away from it.
bool SelectionColour::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        show(true);
    else if (event->type() == QEvent::FocusOut
             && static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
        show(false);
    return false;
}

void SelectionColour::show(bool focused)
{
    const QPalette standard = QApplication::palette(&m_view);
    const bool dark = m_view.palette().color(QPalette::Base).lightness() < 128;
    const QColor grey = dark ? QColor(0x55, 0x59, 0x5e) : QColor(0xd0, 0xd4, 0xd9);
    QPalette palette = m_view.palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Highlight,
                         focused ? standard.color(QPalette::Active, QPalette::Highlight) : grey);
        palette.setColor(group, QPalette::HighlightedText,
                         focused ? standard.color(QPalette::Active, QPalette::HighlightedText)
                                 : palette.color(group, QPalette::Text));
    }
    m_view.setPalette(palette);
}

} // namespace ui
