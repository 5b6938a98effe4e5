#include "core/screens/screen_icons.h"

using namespace Qt::StringLiterals;

// A static library's resources are not loaded by themselves; the macro must stand outside of any
// namespace.
static void loadCoreIcons()
{
    Q_INIT_RESOURCE(core_icons);
}

namespace core {

QIcon screenIcon(const QString& name)
{
    static const bool isLoaded = (loadCoreIcons(), true);
    Q_UNUSED(isLoaded)
    return QIcon(u":/core/icons/"_s + name + u".svg"_s);
}

} // namespace core
