#pragma once

#include <QList>
#include <QMargins>
#include <QRect>

#include <optional>

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

// The frame that the window system draws around a window; as long as the window is not shown, the
// frame of the one that it belongs to.
QMargins frameOf(const QWidget& window);
// What a window takes of the screen, its frame included.
QRect outerRectOf(const QWidget& window);
// Gives a window this place, its frame included, moved and shrunk so that all of it is seen.
void placeOnScreen(QWidget& window, const QRect& outer);
// A place of this size that covers none of the rectangles: at the lower right of the room in which
// most of it fits, cut to that room but not below `least`. Nothing where there is no such room.
std::optional<QRect> placeBeside(const QRect& area, const QSize& size, const QSize& least,
                                 const QList<QRect>& covered);

} // namespace ui
