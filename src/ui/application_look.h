#pragma once

class QApplication;

namespace ui {

// Style, fonts, the Japanese texts of Qt's own dialogs, the window icon and, where asked for, test
// IDs: once, before the first window.
void setUpApplication(QApplication& application);

} // namespace ui
