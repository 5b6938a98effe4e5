#include "ui/desktop_opener.h"

#include "ui/help_viewer.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <memory>
#include <unistd.h>

using namespace Qt::StringLiterals;
using core::Opened;

namespace ui {

namespace {

constexpr int Patience = 2000; // ms

// Whether the desktop knows a program for compiled help. It has to be asked: opening a file that
// nothing takes is reported as done.
bool hasHelpProgram()
{
    QProcess asked;
    asked.start(u"xdg-mime"_s, {u"query"_s, u"default"_s, u"application/vnd.ms-htmlhelp"_s});
    return asked.waitForFinished(Patience) && !asked.readAllStandardOutput().trimmed().isEmpty();
}

std::unique_ptr<QProcess> start(const QString& program, const QString& target)
{
    auto process = std::make_unique<QProcess>();
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier([] { ::setsid(); });
    process->start(program, {target});
    return process;
}

// Waits for the end of the process, for a while; input waits too.
void waitFor(const QProcess& process)
{
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    QTimer::singleShot(Patience, &loop, &QEventLoop::quit);
    QApplication::setOverrideCursor(Qt::BusyCursor);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    QApplication::restoreOverrideCursor();
}

// What the desktop's own opener says of it in the end tells whether anything has taken the target;
// Qt only tells whether the opener was started.
Opened handOver(const QUrl& url)
{
    const QString program = QStandardPaths::findExecutable(u"xdg-open"_s);
    if (program.isEmpty())
        return QDesktopServices::openUrl(url) ? Opened::Yes : Opened::NoProgram;
    std::unique_ptr<QProcess> process = start(program, QString::fromUtf8(url.toEncoded()));
    if (process->state() != QProcess::NotRunning)
        waitFor(*process);
    if (process->state() != QProcess::NotRunning) {
        // On some desktops it runs for as long as the target is shown.
        QObject::connect(process.get(), &QProcess::finished, process.get(), &QObject::deleteLater);
        process.release()->setParent(QCoreApplication::instance());
        return Opened::Yes;
    }
    const bool taken = process->error() != QProcess::FailedToStart
        && process->exitStatus() == QProcess::NormalExit && process->exitCode() == 0;
    return taken ? Opened::Yes : Opened::NoProgram;
}

bool isAddress(const QUrl& url)
{
    const QString schemes[] = {u"http"_s, u"https"_s, u"ftp"_s, u"mailto"_s};
    return url.isValid()
        && std::find(std::begin(schemes), std::end(schemes), url.scheme()) != std::end(schemes);
}

} // namespace

Opened DesktopOpener::openFile(const QString& path)
{
    if (!QDir::isAbsolutePath(path) || !QFileInfo::exists(path))
        return Opened::Missing;
    return handOver(QUrl::fromLocalFile(path));
}

Opened DesktopOpener::openAddress(const QString& address)
{
    const QUrl url = QUrl::fromUserInput(address.trimmed());
    return isAddress(url) ? handOver(url) : Opened::Missing;
}

bool DesktopOpener::openHelp(const QString& helpFile)
{
    if (QFileInfo::exists(helpFile) && hasHelpProgram() && openFile(helpFile) == Opened::Yes)
        return true;
    HelpViewer::showOver(QApplication::activeWindow());
    return true;
}

} // namespace ui
