#include "core/data/registry.h"

#include "core/data/clock.h"
#include "core/data/database_password.h"
#include "core/data/failure.h"
#include "core/data/main_database.h"
#include "core/data/messages.h"
#include "core/data/record_check.h"
#include "core/data/shared.h"
#include "storage/data_files/data_files.h"
#include "storage/transaction.h"

#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;
namespace data_files = storage::data_files;

namespace core {

namespace {

const QString registered =
    u"select * from main where 種類='顧客管理' or 種類='修理管理' ORDER BY [ﾃﾞｰﾀ]"_s;
const QString allByName = u"select * from main ORDER BY [ﾃﾞｰﾀ]"_s;
const QString rowByNumber = u"Select * From main Where [No] ="_s;
const QString deleteByNumber = u"DELETE FROM main Where [No] = "_s;

QList<DataFileEntry> readEntries(Shared& shared, const QString& statement,
                                 std::optional<DataKind> wanted)
{
    QList<DataFileEntry> entries;
    storage::Recordset& row = *shared.MainRecordset;
    shared.SqlText = statement;
    if (!row.open(statement, *shared.MainConnection))
        return entries;
    bool onRow = !row.eof();
    while (onRow) {
        const std::optional<DataKind> kind = kindOfRow(row.text(u"種類"));
        if (kind && (!wanted || kind == wanted)) {
            entries.append(
                {row.value(u"No").toInteger(), row.text(u"ﾃﾞｰﾀ"), row.text(u"ﾊﾟｽﾜｰﾄﾞ"), *kind});
        }
        onRow = row.moveNext();
    }
    row.close();
    return entries;
}

bool isUsableName(Shared& shared, const QString& name)
{
    if (name.isEmpty()) {
        shared.messages.refuse(u"データ名は空白禁止です。"_s);
        return false;
    }
    const QString reason = whyNoFileName(name);
    if (!reason.isEmpty())
        shared.messages.refuse(reason);
    return reason.isEmpty();
}

storage::Value passwordValue(const QString& password)
{
    return password.isEmpty() ? storage::Value() : storage::Value(password);
}

// Writes name and password into the current row of MainRecordset and closes it.
bool writeEntry(Shared& shared, const QString& name, const QString& password)
{
    storage::Recordset& row = *shared.MainRecordset;
    const bool written = row.setValue(u"ﾃﾞｰﾀ", name)
        && row.setValue(u"ﾊﾟｽﾜｰﾄﾞ", passwordValue(password))
        && row.setValue(u"更新日時", shared.clock.now()) && row.update();
    row.close();
    return written;
}

bool appendRow(Shared& shared, DataKind kind, const QString& name, const QString& password)
{
    storage::Recordset& row = *shared.MainRecordset;
    shared.SqlText = u"main"_s;
    if (!row.open(shared.SqlText, *shared.MainConnection, storage::CursorType::Dynamic,
                  storage::LockType::Optimistic))
        return false;
    if (row.addNew() && row.setValue(u"種類", rowKind(kind)))
        return writeEntry(shared, name, password);
    row.close();
    return false;
}

bool changeRow(Shared& shared, qint64 number, const QString& name, const QString& password)
{
    storage::Transaction change(*shared.MainConnection);
    if (!change.isActive())
        return false;
    shared.SqlText = rowByNumber + QString::number(number);
    return shared.MainRecordset->open(shared.SqlText, *shared.MainConnection,
                                      storage::CursorType::Dynamic, storage::LockType::Optimistic)
        && writeEntry(shared, name, password) && change.commit();
}

// The entry as its row is now: another copy of the program may have changed it.
std::optional<DataFileEntry> reread(Shared& shared, const DataFileEntry& selected)
{
    const QList<DataFileEntry> found =
        readEntries(shared, rowByNumber + QString::number(selected.number), selected.kind);
    return found.isEmpty() ? std::nullopt : std::optional(found.first());
}

void tellAnd(Shared& shared, const QString& firstLine, const QString& secondLine)
{
    shared.MessageText = firstLine + u"\r\n"_s + secondLine;
    shared.messages.tell(shared.MessageText);
}

} // namespace

QList<DataFileEntry> ListDataFiles(Shared& shared, DataKind kind)
{
    return readEntries(shared, registered, kind);
}

QList<DataFileEntry> ListDataFilesForOpen(Shared& shared, std::optional<DataKind> kind)
{
    return readEntries(shared, allByName, kind);
}

bool AddDataFile(Shared& shared, DataKind kind, const QString& name, const QString& password)
{
    if (!isUsableName(shared, name))
        return false;
    const QList<DataFileEntry> others = ListDataFiles(shared, kind);
    const QString file = dataFile(shared.programFolder, kind, name);
    const bool isTaken = std::any_of(others.begin(), others.end(), [&](const DataFileEntry& other) {
        return other.name == name;
    });
    if (isTaken || data_files::exists(file)) {
        shared.messages.refuse(u"同じデータ名が存在します。"_s);
        return false;
    }
    QDir().mkpath(dataFolder(shared.programFolder, kind));
    if (!appendRow(shared, kind, name, password))
        return tellFailure(shared.messages, SaveFailedText, *shared.MainConnection);
    data_files::create(templateFile(shared.programFolder, kind), file);
    tellAnd(shared, u"データ名 『 "_s + name + u" 』 が追加されました。"_s,
            u"パスワードは 『 "_s + password + u" 』 です。"_s);
    return true;
}

bool ChangeDataFile(Shared& shared, const DataFileEntry& selected, const QString& newName,
                    const QString& newPassword)
{
    if (!isUsableName(shared, newName))
        return false;
    const std::optional<DataFileEntry> old = reread(shared, selected);
    if (!old) {
        tellRowGone(shared.messages);
        return false;
    }
    if (!changeRow(shared, old->number, newName, newPassword))
        return tellFailure(shared.messages, SaveFailedText, *shared.MainConnection);

    const QString& folder = shared.programFolder;
    if (old->name != newName
        && data_files::rename(dataFile(folder, old->kind, old->name),
                              dataFile(folder, old->kind, newName),
                              QString::fromUtf16(DatabasePassword))) {
        // The row stays changed: row first, file second.
        shared.MessageText = u"ﾌｧｲﾙが見つかりません。"_s;
        shared.messages.refuse(shared.MessageText);
        return false;
    }
    tellAnd(shared,
            u"データ名が 『 "_s + old->name + u" 』 から 『 "_s + newName
                + u" 』 に変更されました。"_s,
            u"パスワードが 『 "_s + old->password + u" 』 から 『 "_s + newPassword
                + u" 』 に変更されました。"_s);
    return true;
}

bool DeleteDataFile(Shared& shared, const DataFileEntry& selected)
{
    const Answer answer =
        shared.messages.show(MessageStyle::ExclamationYesNo, selected.name + u" を削除しますか？"_s,
                             QString::fromUtf16(AppTitleText));
    shared.DialogAnswer = QString::number(static_cast<int>(answer));
    if (answer != Answer::Yes)
        return false;
    if (!RunStatement(shared, deleteByNumber + QString::number(selected.number)))
        return tellFailure(shared.messages, DeleteFailedText, *shared.MainConnection);
    // A failed renaming can leave two rows with one name: the file is the other one's too.
    const QList<DataFileEntry> left = ListDataFiles(shared, selected.kind);
    const bool stillNamed = std::any_of(left.begin(), left.end(), [&](const DataFileEntry& each) {
        return each.name == selected.name;
    });
    if (!stillNamed)
        data_files::remove(dataFile(shared.programFolder, selected.kind, selected.name));
    return true;
}

} // namespace core
