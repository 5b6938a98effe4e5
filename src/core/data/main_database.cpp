#include "core/data/main_database.h"

#include "core/data/clock.h"
#include "core/data/database_password.h"
#include "core/data/program_folder.h"
#include "core/data/shared.h"
#include "storage/data_files/data_files.h"
#include "storage/transaction.h"

using namespace Qt::StringLiterals;

namespace core {

namespace {

const QString versionByKind = u"SELECT * FROM main WHERE 種類 = 'ﾊﾞｰｼﾞｮﾝ'"_s;
const QString versionByNumber = u"SELECT * FROM main WHERE [No] = 5"_s;
const QString allParts = u"SELECT * FROM 共通部品"_s;
const QString upgradeStatements[] = {u"ALTER TABLE 共通部品 ADD COLUMN 売値 Long"_s};

bool openForChange(Shared& shared, const QString& statement)
{
    shared.SqlText = statement;
    return shared.MainRecordset->open(statement, *shared.MainConnection,
                                      storage::CursorType::Dynamic, storage::LockType::Optimistic);
}

void resetSellingPrices(Shared& shared)
{
    storage::Recordset& parts = *shared.MainRecordset;
    if (!openForChange(shared, allParts))
        return;
    bool onRow = !parts.eof();
    while (onRow) {
        parts.setValue(u"売値", 0);
        parts.setValue(u"更新日時", shared.clock.now());
        parts.update();
        onRow = parts.moveNext();
    }
    parts.close();
}

void writeVersion(Shared& shared, const QString& version)
{
    storage::Recordset& row = *shared.MainRecordset;
    if (!openForChange(shared, versionByNumber))
        return;
    row.setValue(u"ﾃﾞｰﾀ", version);
    row.setValue(u"更新日時", shared.clock.now());
    row.update();
    row.close();
}

} // namespace

void OpenMainDatabase(Shared& shared)
{
    if (!shared.MainConnection) {
        shared.MainConnection = std::make_unique<storage::Connection>();
        shared.MainRecordset = std::make_unique<storage::Recordset>();
    }
    shared.MainConnection->close();
    const QString path = programFile(shared.programFolder, u"\\main.mdb");
    const QByteArray identity = storage::data_files::identity(path);
    if (shared.MainConnection->open(path, QString::fromUtf16(DatabasePassword)))
        shared.mainIdentity = identity;
}

void CloseMainDatabase(Shared& shared)
{
    shared.MainRecordset.reset();
    shared.MainConnection.reset();
}

void CheckVersion(Shared& shared)
{
    storage::Recordset& row = *shared.MainRecordset;
    shared.SqlText = versionByKind;
    QString version;
    if (row.open(versionByKind, *shared.MainConnection)) {
        if (!row.eof())
            version = row.text(u"ﾃﾞｰﾀ");
        row.close();
    }
    if (version == u"3.0.0")
        UpgradeTo311(shared);
}

void UpgradeTo311(Shared& shared)
{
    storage::Transaction whole(*shared.MainConnection);
    if (!whole.isActive())
        return;
    for (const QString& statement : upgradeStatements)
        RunStatement(shared, statement);
    resetSellingPrices(shared);
    writeVersion(shared, u"3.1.1"_s);
    whole.commit();
}

bool RunStatement(Shared& shared, const QString& statement)
{
    shared.SqlText = statement;
    return shared.MainConnection->execute(statement);
}

} // namespace core
