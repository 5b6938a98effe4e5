#include "records/data/data_file.h"

#include "core/data/database_password.h"
#include "core/data/failure.h"
#include "records/data/file_upgrade.h"
#include "storage/schema/catalog.h"

using namespace Qt::StringLiterals;

namespace records {

namespace {

const QString VersionTable = u"バージョン情報"_s;
constexpr QStringView OpenFailedText = u"データファイルを開けませんでした。";

// Closes a file that cannot be used and tells why.
bool refuseFile(DataFile& file, const storage::Error& error)
{
    file.connection.close();
    core::tellFailure(file.messages, OpenFailedText, error);
    return false;
}

} // namespace

bool openDataFile(DataFile& file, const QString& path, storage::Mode mode)
{
    if (!file.connection.open(path, QString::fromUtf16(core::DatabasePassword), mode))
        return core::tellFailure(file.messages, OpenFailedText, file.connection);
    const storage::schema::Catalog& tables = file.connection.catalog();
    if (!tables.find(VersionTable) || !tables.find(file.form.table))
        return refuseFile(file, {storage::ErrorKind::Unreadable, file.form.refusal, -1, {}});
    if (!upgradeDataFile(file))
        return refuseFile(file, file.connection.lastError());
    // A run that was killed after its upgrade may have left some out. A file of an unknown version
    // is left untouched.
    if (isOfPresentVersion(file))
        file.connection.bringUpToDate(file.form.definition);
    return file.connection.isOpen() || refuseFile(file, file.connection.lastError());
}

} // namespace records
