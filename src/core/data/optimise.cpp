#include "core/data/optimise.h"

#include "core/data/database_password.h"
#include "core/data/messages.h"
#include "core/data/program_folder.h"
#include "core/data/registry.h"
#include "core/data/shared.h"
#include "storage/data_files/data_files.h"

using namespace Qt::StringLiterals;

namespace core {

bool Optimise(Shared& shared, const DataFileEntry& entry)
{
    const QString folder = entry.kind == DataKind::Customer ? u"\\Corvane\\"_s : u"\\care\\"_s;
    const QString target = programFile(shared.programFolder, folder + u"最適化.mdb"_s);
    // The source's path is kept here while it is worked on, whichever the kind.
    shared.CustomerDataPath = dataFile(shared.programFolder, entry.kind, entry.name);
    const auto failure = storage::data_files::compactInPlace(shared.CustomerDataPath, target,
                                                             QString::fromUtf16(DatabasePassword));
    shared.CustomerDataPath.clear();
    if (failure) {
        shared.messages.refuse(
            u"「 "_s + entry.name
            + u" 」は使用中の可能性があります。終了させてから実行して下さい。"_s);
        return false;
    }
    shared.messages.tell(u"最適化が終了しました。"_s);
    return true;
}

} // namespace core
