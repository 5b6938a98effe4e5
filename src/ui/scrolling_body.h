#pragma once

class QDialog;

namespace ui {

// Lets all of a dialog scroll but the last item of its layout (QVBoxLayout), its buttons: on a
// small screen they stay to be seen. What gets the focus is scrolled to. The dialog keeps the size
// that it had, as far as the screen has the room.
void scrollBody(QDialog& dialog);

} // namespace ui
