#pragma once

#include <QIcon>
#include <QString>

namespace ui {

// The drawing of this name in icons/; drawn to be seen on a light and on a dark ground.
QIcon icon(const QString& name);

} // namespace ui
