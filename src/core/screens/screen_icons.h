#pragma once

#include <QIcon>
#include <QString>

namespace core {

// The drawing of this name in the launcher's icons.
QIcon screenIcon(const QString& name);

} // namespace core
