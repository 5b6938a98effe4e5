#include "app/desktop_opener.h"

#include "ui/help_viewer.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

// Whether the desktop knows a program for compiled help. It has to be asked: opening a file that
// nothing takes is reported as done.
bool hasHelpProgram()
{
    QProcess asked;
    asked.start(u"xdg-mime"_s, {u"query"_s, u"default"_s, u"application/vnd.ms-htmlhelp"_s});
    constexpr int Patience = 2000; // ms
    return asked.waitForFinished(Patience) && !asked.readAllStandardOutput().trimmed().isEmpty();
}

} // namespace

bool DesktopOpener::open(const QString& target)
{
    if (QDir::isAbsolutePath(target)) {
        // The desktop reports success for a file that is not there.
        return QFileInfo::exists(target) && QDesktopServices::openUrl(QUrl::fromLocalFile(target));
    }
    const QUrl url = QUrl::fromUserInput(target);
    return url.isValid() && QDesktopServices::openUrl(url);
}

bool DesktopOpener::openHelp(const QString& helpFile)
{
    if (QFileInfo::exists(helpFile) && hasHelpProgram() && open(helpFile))
        return true;
    ui::HelpViewer::showOver(QApplication::activeWindow());
    return true;
}
