#pragma once

class QWidget;

namespace ui {

// Switches the input method off while a widget has the focus.
void switchInputMethodOff(QWidget& widget);

} // namespace ui
