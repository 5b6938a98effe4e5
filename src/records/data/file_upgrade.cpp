#include "records/data/file_upgrade.h"

#include "records/data/row_changes.h"
#include "storage/recordset.h"
#include "storage/transaction.h"

using namespace Qt::StringLiterals;

namespace records {

namespace {

const QString VersionQuery = u"SELECT * FROM バージョン情報 WHERE [No] = 1"_s;
const QString UpgradedSettings = u"SELECT * FROM 設定 WHERE 設定ID = 1"_s;
const QString OldVersion = u"3.0.0"_s;
const QString NewVersion = u"3.1.1"_s;

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
    const std::optional<bool> found = rowStands(file, UpgradedSettings);
    if (!found)
        return isSkipped(file.connection.lastError());
    if (!*found)
        return true;
    return writeRow(file, UpgradedSettings, values);
}

bool writeVersion(DataFile& file)
{
    storage::Recordset row;
    return row.open(VersionQuery, file.connection, storage::CursorType::Dynamic,
                    storage::LockType::Optimistic)
        && row.setValue(u"ﾊﾞｰｼﾞｮﾝ", NewVersion) && row.update();
}

} // namespace

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

bool isOfPresentVersion(DataFile& file)
{
    return versionOf(file) == NewVersion;
}

} // namespace records
