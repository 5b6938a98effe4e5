#include "core/data/main_access.h"

#include "core/data/failure.h"
#include "core/data/main_database.h"
#include "core/data/program_folder.h"
#include "core/data/shared.h"
#include "storage/data_files/data_files.h"
#include "storage/schema/catalog.h"

#include <QFileInfo>

#include <optional>

using namespace Qt::StringLiterals;
using storage::Error;
using storage::ErrorKind;

namespace core {

namespace {

constexpr QStringView CannotOpen = u"main.mdb を開けませんでした。";
const QString anyRow = u"SELECT [No] FROM main WHERE [No] = 5"_s;

QString mainFile(const Shared& shared)
{
    return programFile(shared.programFolder, u"\\main.mdb");
}

bool canWrite(const QString& path)
{
    return QFileInfo(path).isWritable();
}

// What stands against working with main.mdb as it is open now.
std::optional<Error> findTrouble(Shared& shared)
{
    if (!shared.MainConnection)
        return Error{ErrorKind::State, {}};
    storage::Connection& database = *shared.MainConnection;
    if (!database.isOpen())
        return database.lastError();
    // A file that was moved away can still be read and written; its place may have another by now.
    if (storage::data_files::identity(mainFile(shared)) != shared.mainIdentity)
        return Error{ErrorKind::Missing, u"main.mdb が移動または削除されました。"_s};
    if (!database.catalog().find(u"main"_s))
        return Error{ErrorKind::Unreadable,
                     u"このファイルは別のデータのファイルで、main.mdb ではありません。"_s};
    storage::Recordset probe;
    if (!probe.open(anyRow, database))
        return database.lastError();
    return std::nullopt;
}

// Gives why an empty program folder could not be filled.
std::optional<QString> openAnew(Shared& shared)
{
    std::optional<QString> notFilled;
    // An empty place that had a shop in it may be a drive that is not there at the moment.
    if (shared.mainIdentity.isEmpty())
        notFilled = fillProgramFolder({shared.programFolder, shared.originals});
    OpenMainDatabase(shared);
    if (shared.MainConnection->isOpen())
        CheckVersion(shared);
    return notFilled;
}

QString whyMissing(const Shared& shared, const Error& error,
                   const std::optional<QString>& notFilled)
{
    const QString& folder = shared.programFolder;
    if (notFilled)
        return *notFilled;
    if (!QFileInfo::exists(folder))
        return u"プログラムフォルダー 『 "_s + folder + u" 』 がありません。"_s;
    if (holdsShopFiles(folder)) {
        return u"データのファイルはありますが、main.mdb がありません。新しい main.mdb は作らずに"
               "います。元の main.mdb をこの場所に戻して下さい。"_s;
    }
    if (!isEmptyFolder(folder))
        return u"main.mdb がありません。空のフォルダーではない為、新しい main.mdb は作らずにいます。"_s;
    return error.message;
}

QString whyFailed(const Shared& shared, const Error& error, const std::optional<QString>& notFilled)
{
    if (!QFileInfo::exists(mainFile(shared)))
        return whyMissing(shared, error, notFilled);
    if (error.kind != ErrorKind::ReadOnly)
        return error.message;
    if (!canWrite(shared.programFolder))
        return u"プログラムフォルダー 『 "_s + shared.programFolder + u" 』 に書き込めません。"_s;
    return canWrite(mainFile(shared)) ? error.message : u"main.mdb に書き込めません。"_s;
}

void tell(Shared& shared, QStringView what, Error error, const std::optional<QString>& notFilled)
{
    error.message = whyFailed(shared, error, notFilled);
    tellFailure(shared.messages, what.toString() + u"\r\n場所： "_s + mainFile(shared), error);
}

} // namespace

bool reachMainDatabase(Shared& shared)
{
    if (!findTrouble(shared))
        return true;
    const std::optional<QString> notFilled = openAnew(shared);
    const std::optional<Error> trouble = findTrouble(shared);
    if (trouble)
        tell(shared, CannotOpen, *trouble, notFilled);
    return !trouble;
}

bool isMainDatabaseOpen(Shared& shared)
{
    return !findTrouble(shared);
}

bool tellMainDatabaseFailed(Shared& shared, QStringView what)
{
    tell(shared, what, shared.MainConnection->lastError(), std::nullopt);
    return false;
}

} // namespace core
