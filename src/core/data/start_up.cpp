#include "core/data/start_up.h"

#include "core/data/main_database.h"
#include "core/data/messages.h"
#include "core/data/program_folder.h"
#include "core/data/shared.h"
#include "core/data/single_instance.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace core {

bool Main(Shared& shared, const ProgramFolder& folder)
{
    const QString title = QString::fromUtf16(AppTitleText);
    shared.programFolder = folder.path;
    shared.originals = folder.originals;
    if (!folder.originals.isEmpty())
        QDir().mkpath(folder.path); // so that its canonical path is known
    shared.instanceLock = lockInstance(folder.path);
    if (!shared.instanceLock) {
        shared.messages.refuse(u"すでに「"_s + title + u"」は起動されています。"_s);
        return false;
    }
    fillProgramFolder(folder); // what fails is told by the first step that needs main.mdb
    shared.EndOnMenuClose = true;
    OpenMainDatabase(shared);
    shared.MessageText.clear();
    shared.CustomerDataPath.clear();
    shared.RepairDataPath.clear();
    shared.AppTitle = title;
    shared.HelpFilePath = programFile(shared.programFolder, u"\\コルヴァン３ヘルプ.chm");
    CheckVersion(shared);
    return true;
}

} // namespace core
