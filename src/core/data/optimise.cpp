#include "core/data/optimise.h"

#include "core/data/database_password.h"
#include "core/data/messages.h"
#include "core/data/program_folder.h"
#include "core/data/registry.h"
#include "core/data/shared.h"
#include "storage/data_files/data_files.h"

#include <QFileInfo>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace core {

namespace {

// Names what a compaction that was cut short has left and the next one stumbles over; empty when
// there is nothing, or nothing that may be deleted. Which data it was made of is not to be seen.
QString leftOverNote(Shared& shared, const QString& draft)
{
    QStringList left;
    for (const QString& path : {draft, draft + u"-journal"_s}) {
        if (QFileInfo::exists(path))
            left.append(u"「"_s + path + u"」"_s);
    }
    if (left.isEmpty() || isRegisteredFile(shared, draft))
        return {};
    return u"\r\n前に途中で終わった最適化の"_s + left.join(u"と"_s)
        + u"が残っています。一覧のデータをすべて開けることが確認できれば、削除しても構いません。"_s;
}

} // namespace

bool Optimise(Shared& shared, const DataFileEntry& entry, const std::function<void()>& whenOver)
{
    const QString folder = entry.kind == DataKind::Customer ? u"\\Corvane\\"_s : u"\\care\\"_s;
    const QString target = programFile(shared.programFolder, folder + u"最適化.mdb"_s);
    // The source's path is kept here while it is worked on, whichever the kind.
    shared.CustomerDataPath = dataFile(shared.programFolder, entry.kind, entry.name);
    const auto failure = storage::data_files::compactInPlace(shared.CustomerDataPath, target,
                                                             QString::fromUtf16(DatabasePassword));
    shared.CustomerDataPath.clear();
    const bool isLeftOver = failure && failure->kind == storage::ErrorKind::Exists;
    const QString note = isLeftOver ? leftOverNote(shared, target) : QString();
    whenOver();
    if (failure) {
        shared.messages.refuse(
            u"「 "_s + entry.name
                + u" 」は使用中の可能性があります。終了させてから実行して下さい。"_s + note,
            (failure->message + u'\n' + failure->details).trimmed());
        return false;
    }
    shared.messages.tell(u"最適化が終了しました。"_s);
    return true;
}

} // namespace core
