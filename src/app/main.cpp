#include "app/program/program.h"
#include "core/data/clock.h"
#include "core/data/program_folder.h"
#include "core/data/program_version.h"
#include "core/data/shared.h"
#include "core/data/start_up.h"
#include "records/data/draft_store.h"
#include "ui/application_look.h"
#include "ui/desktop_opener.h"
#include "ui/end_signals.h"
#include "ui/message_boxes.h"
#include "ui/user_settings.h"
#include "ui/wait_cursor.h"

#include <QApplication>

#include <csignal>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    // A limit on the size of files is to be told as a full disk is, not to end the program.
    std::signal(SIGXFSZ, SIG_IGN);
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"corvane"_s);
    QCoreApplication::setApplicationVersion(core::versionText());
    QGuiApplication::setDesktopFileName(QStringLiteral(CORVANE_DESKTOP_ID));
    ui::setUpApplication(application);

    const ui::EndSignals endSignals;
    const ui::WaitCursor waitCursor;
    ui::MessageBoxes messages;
    const core::SystemClock clock;
    core::Shared shared(messages, clock);
    if (!core::Main(shared, core::findProgramFolder(QCoreApplication::applicationDirPath())))
        return 0;

    ui::DesktopOpener opener;
    ui::StoredUserSettings userSettings;
    Program program(shared, opener, userSettings, records::userStateFolder());
    program.start();
    return QApplication::exec();
}
