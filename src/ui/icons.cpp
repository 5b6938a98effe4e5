#include "ui/icons.h"

#include <QDir>

// A static library's resources are not loaded by themselves; the macro must stand outside of any
// namespace.
static void loadIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace ui {

QIcon icon(const QString& name)
{
    static const bool loaded = (loadIcons(), true);
    Q_UNUSED(loaded)
    return QIcon(QStringLiteral(":/icons/") + name + QStringLiteral(".svg"));
}

} // namespace ui
