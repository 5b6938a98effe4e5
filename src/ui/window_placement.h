#pragma once

#include <QRect>

class QHeaderView;
class QSplitter;
class QWidget;

namespace ui {

class UserSettings;

// Gives a window, a splitter or a list's header what it had when it was saved under its object name
// (a splitter and a header: their window's name in front); leaves it as it is when nothing was
// saved.
void restoreWindow(QWidget& window, const UserSettings& settings);
void saveWindow(const QWidget& window, UserSettings& settings);
void restoreSplitter(QSplitter& splitter, const UserSettings& settings);
void saveSplitter(const QSplitter& splitter, UserSettings& settings);
void restoreHeader(QHeaderView& header, const UserSettings& settings);
void saveHeader(const QHeaderView& header, UserSettings& settings);

// The room on the screen that a kept place lies on; on the window's own where that is gone.
QRect areaFor(const QWidget& window, const QRect& kept);
// The size that a window can have on its screen, its frame with it.
QSize roomFor(const QWidget& window);
// The rectangle moved, and shrunk if need be, so that all of it can be seen in `area`.
QRect fitInto(const QRect& area, QRect rectangle);

} // namespace ui
