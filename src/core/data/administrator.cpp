#include "core/data/administrator.h"

#include "core/data/clock.h"
#include "core/data/failure.h"
#include "core/data/main_access.h"
#include "core/data/messages.h"
#include "core/data/shared.h"
#include "storage/transaction.h"

using namespace Qt::StringLiterals;

namespace core {

namespace {

const QString rowToCheck = u"Select * From main Where 種類 ='管理者'"_s;
const QString rowToChange = u"Select * From main Where 種類='管理者'"_s;

Administrator currentRow(const storage::Recordset& row)
{
    return {row.text(u"ﾃﾞｰﾀ"), row.text(u"ﾊﾟｽﾜｰﾄﾞ")};
}

// Gives the row, if there is one. False when it could not be read; the user has been told why.
bool readRow(Shared& shared, std::optional<Administrator>* found)
{
    if (!reachMainDatabase(shared))
        return false;
    storage::Recordset& row = *shared.MainRecordset;
    shared.SqlText = rowToCheck;
    if (!row.open(rowToCheck, *shared.MainConnection))
        return tellMainDatabaseFailed(shared, ReadFailedText);
    if (!row.eof())
        *found = currentRow(row);
    row.close();
    return true;
}

// Gives what the row held before; nullopt when it could not be written.
std::optional<Administrator> replaceRow(Shared& shared, const Administrator& entered)
{
    storage::Transaction change(*shared.MainConnection);
    storage::Recordset& row = *shared.MainRecordset;
    shared.SqlText = rowToChange;
    if (!change.isActive()
        || !row.open(rowToChange, *shared.MainConnection, storage::CursorType::Dynamic,
                     storage::LockType::Optimistic))
        return std::nullopt;
    const Administrator old = row.eof() ? Administrator() : currentRow(row);
    const storage::Value password =
        entered.password.isEmpty() ? storage::Value() : storage::Value(entered.password);
    const bool written = row.setValue(u"ﾃﾞｰﾀ", entered.name) && row.setValue(u"ﾊﾟｽﾜｰﾄﾞ", password)
        && row.setValue(u"更新日時", shared.clock.now()) && row.update();
    row.close();
    if (!written || !change.commit())
        return std::nullopt;
    return old;
}

} // namespace

std::optional<bool> CheckAdministrator(Shared& shared, const QString& name, const QString& password)
{
    std::optional<Administrator> found;
    if (!readRow(shared, &found))
        return std::nullopt;
    // No password is Null, which reads as the empty text.
    return found == Administrator{name, password};
}

std::optional<Administrator> LoadAdministrator(Shared& shared)
{
    std::optional<Administrator> found;
    if (!readRow(shared, &found))
        return std::nullopt;
    return found.value_or(Administrator());
}

bool SaveAdministrator(Shared& shared, const Administrator& entered)
{
    if (!reachMainDatabase(shared))
        return false;
    const std::optional<Administrator> old = replaceRow(shared, entered);
    if (!old)
        return tellMainDatabaseFailed(shared, SaveFailedText);
    shared.MessageText = u"管理者名が 『 "_s + old->name + u" 』 から 『 "_s + entered.name
        + u" 』 に変更されました。\r\nパスワードが 『 "_s + old->password + u" 』 から 『 "_s
        + entered.password + u" 』 に変更されました。"_s;
    shared.messages.tell(shared.MessageText);
    return true;
}

} // namespace core
