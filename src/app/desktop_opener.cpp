#include "app/desktop_opener.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

bool DesktopOpener::open(const QString& target)
{
    if (QDir::isAbsolutePath(target)) {
        // The desktop reports success for a file that is not there.
        return QFileInfo::exists(target) && QDesktopServices::openUrl(QUrl::fromLocalFile(target));
    }
    const QUrl url = QUrl::fromUserInput(target);
    return url.isValid() && QDesktopServices::openUrl(url);
}
