#include "records/data/data_file.h"

#include "core/data/database_password.h"
#include "core/data/failure.h"
#include "records/data/row_changes.h"
#include "storage/recordset.h"
#include "storage/schema/catalog.h"
#include "storage/transaction.h"

using namespace Qt::StringLiterals;

namespace records {

namespace {

const QString VersionTable = u"バージョン情報"_s;
const QString VersionQuery = u"SELECT * FROM "_s + VersionTable + u" WHERE [No] = 1"_s;
const QString SettingsQuery = u"SELECT * FROM 設定 WHERE 設定ID = 1"_s;
const QString OldVersion = u"3.0.0"_s;
const QString NewVersion = u"3.1.1"_s;
constexpr QStringView OpenFailedText = u"データファイルを開けませんでした。";

QString versionOf(DataFile& file)
{
    storage::Recordset row;
    if (!row.open(VersionQuery, file.connection) || row.eof())
        return {};
    return row.text(u"ﾊﾞｰｼﾞｮﾝ");
}

// Failures that lie in the statement are skipped; those of the file or the machine would leave half
// an upgrade.
bool isSkipped(const storage::Error& error)
{
    switch (error.kind) {
    case storage::ErrorKind::Syntax:
    case storage::ErrorKind::Name:
    case storage::ErrorKind::Type:
    case storage::ErrorKind::Constraint:
    case storage::ErrorKind::Exists:
        return true;
    default:
        return false;
    }
}

bool runEachByItself(DataFile& file, const QStringList& statements)
{
    for (const QString& statement : statements) {
        storage::Transaction step(file.connection);
        if (!step.isActive())
            return false;
        if (file.connection.execute(statement)) {
            if (!step.commit())
                return false;
        } else if (!isSkipped(file.connection.lastError())) {
            return false;
        }
    }
    return true;
}

bool writeNewSettings(DataFile& file, const FieldValues& values)
{
    const std::optional<bool> found = rowStands(file, SettingsQuery);
    if (!found)
        return isSkipped(file.connection.lastError());
    if (!*found)
        return true;
    return writeRow(file, SettingsQuery, values);
}

bool writeVersion(DataFile& file)
{
    storage::Recordset row;
    return row.open(VersionQuery, file.connection, storage::CursorType::Dynamic,
                    storage::LockType::Optimistic)
        && row.setValue(u"ﾊﾞｰｼﾞｮﾝ", NewVersion) && row.update();
}

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
    if (versionOf(file) == NewVersion)
        file.connection.bringUpToDate(file.form.definition);
    return file.connection.isOpen() || refuseFile(file, file.connection.lastError());
}

bool upgradeDataFile(DataFile& file)
{
    if (versionOf(file) != OldVersion)
        return true;
    storage::Transaction whole(file.connection);
    if (!whole.isActive())
        return false;
    if (versionOf(file) != OldVersion)
        return true; // another copy was faster
    return runEachByItself(file, file.form.statements)
        && writeNewSettings(file, file.form.newSettings) && writeVersion(file) && whole.commit();
}

} // namespace records
