#pragma once

class QLineEdit;

namespace ui {

// A field for a password: what stands in it shows as dots until its eye button (or Ctrl+H) shows
// it. While it is seen it can be typed with the input method, since passwords may hold kana.
void hidePassword(QLineEdit& field);

} // namespace ui
