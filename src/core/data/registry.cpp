#include "core/data/registry.h"

#include "core/data/clock.h"
#include "core/data/database_password.h"
#include "core/data/failure.h"
#include "core/data/main_access.h"
#include "core/data/main_database.h"
#include "core/data/messages.h"
#include "core/data/shared.h"
#include "storage/data_files/data_files.h"
#include "storage/transaction.h"

#include <QDir>
#include <QFileInfo>

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

const QString NameTaken = u"同じデータ名が存在します。"_s;
const QString RenamedMeanwhile =
    u"データ名が他で変更されています。一覧を確認してから、もう一度実行して下さい。"_s;

using Entries = QList<DataFileEntry>;

// What came of writing a row. Nothing is told while the rows are locked, so it is kept until then.
struct Outcome {
    enum Kind { Written, Refused, Gone, Failed };
    Kind kind = Written;
    QString refusal;
};

// nullopt when a row cannot be read.
std::optional<Entries> readEntries(Shared& shared, const QString& statement,
                                   std::optional<DataKind> wanted)
{
    Entries entries;
    storage::Recordset& row = *shared.MainRecordset;
    const qsizetype failures = shared.MainConnection->errors().size();
    shared.SqlText = statement;
    bool onRow = row.open(statement, *shared.MainConnection) && !row.eof();
    while (onRow) {
        const std::optional<DataKind> kind = kindOfRow(row.text(u"種類"));
        if (kind && (!wanted || kind == wanted)) {
            entries.append(
                {row.value(u"No").toInteger(), row.text(u"ﾃﾞｰﾀ"), row.text(u"ﾊﾟｽﾜｰﾄﾞ"), *kind});
        }
        onRow = row.moveNext();
    }
    row.close();
    // A part of the rows would pass for all of them.
    return shared.MainConnection->errors().size() == failures ? std::optional(entries)
                                                              : std::nullopt;
}

std::optional<Entries> readOrTell(Shared& shared, const QString& statement,
                                  std::optional<DataKind> wanted)
{
    if (!reachMainDatabase(shared))
        return std::nullopt;
    std::optional<Entries> entries = readEntries(shared, statement, wanted);
    if (!entries)
        tellMainDatabaseFailed(shared, ReadFailedText);
    return entries;
}

bool isNameGiven(Shared& shared, const QString& name)
{
    if (name.isEmpty())
        shared.messages.refuse(u"データ名は空白禁止です。"_s);
    return !name.isEmpty();
}

// Whether an entry of the list, the one with that number aside, bears the name. Letter case does
// not tell names apart: there are file systems on which it does not tell files apart.
bool isTaken(const Entries& ofKind, const QString& name, qint64 except)
{
    return std::any_of(ofKind.begin(), ofKind.end(), [&](const DataFileEntry& each) {
        return each.number != except && isSameName(each.name, name);
    });
}

// Whether an entry of the list leads to the file, under this name or another.
bool isLedTo(const Shared& shared, const Entries& entries, const QString& file)
{
    const QByteArray identity = data_files::identity(file);
    return std::any_of(entries.begin(), entries.end(), [&](const DataFileEntry& each) {
        const QString path = dataFile(shared.programFolder, each.kind, each.name);
        return path == file || (!identity.isEmpty() && data_files::identity(path) == identity);
    });
}

// The same for the entries but the one with that number. True too when they cannot be read, so that
// nothing is done to the file.
bool isAnothersFile(Shared& shared, const QString& file, qint64 except)
{
    std::optional<Entries> others = readEntries(shared, registered, std::nullopt);
    if (!others)
        return true;
    others->removeIf([except](const DataFileEntry& each) { return each.number == except; });
    return isLedTo(shared, *others, file);
}

// Why the folder of a kind cannot take a new file; empty when it can. Makes the folder.
QString whyNoNewFile(const QString& folder)
{
    const QString quoted = u"フォルダー 『 "_s + folder + u" 』 "_s;
    if (QFileInfo::exists(folder) && !QFileInfo(folder).isDir())
        return quoted + u"を作成できません。同じ名前のファイルがあります。"_s;
    if (!QDir().mkpath(folder))
        return quoted + u"を作成できません。"_s;
    return QFileInfo(folder).isWritable() ? QString() : quoted + u"に書き込めません。"_s;
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

bool openRegistry(Shared& shared, const QString& statement)
{
    shared.SqlText = statement;
    return shared.MainRecordset->open(statement, *shared.MainConnection,
                                      storage::CursorType::Dynamic, storage::LockType::Optimistic);
}

bool appendRow(Shared& shared, DataKind kind, const QString& name, const QString& password)
{
    storage::Recordset& row = *shared.MainRecordset;
    if (!openRegistry(shared, u"main"_s))
        return false;
    if (row.addNew() && row.setValue(u"種類", rowKind(kind)))
        return writeEntry(shared, name, password);
    row.close();
    return false;
}

// In one transaction with the look at the other entries: two copies of the program must not give
// one name twice.
Outcome appendEntry(Shared& shared, DataKind kind, const QString& name, const QString& password)
{
    storage::Transaction change(*shared.MainConnection);
    if (!change.isActive())
        return {Outcome::Failed, {}};
    const std::optional<Entries> others = readEntries(shared, registered, kind);
    if (!others)
        return {Outcome::Failed, {}};
    if (isTaken(*others, name, 0))
        return {Outcome::Refused, NameTaken};
    const QString reason = whyNoNewFile(dataFolder(shared.programFolder, kind));
    if (!reason.isEmpty())
        return {Outcome::Refused, reason};
    const bool written = appendRow(shared, kind, name, password) && change.commit();
    return {written ? Outcome::Written : Outcome::Failed, {}};
}

// An entry that is changed or deleted, as its row was just before: another copy of the program may
// have changed it since it was listed.
struct Before {
    DataFileEntry entry;
    QString file;
    bool isAnothers = false; // another entry leads to the file
};

Outcome reread(Shared& shared, const DataFileEntry& listed, Before* before)
{
    const std::optional<Entries> found =
        readEntries(shared, rowByNumber + QString::number(listed.number), listed.kind);
    if (!found)
        return {Outcome::Failed, {}};
    if (found->isEmpty())
        return {Outcome::Gone, {}};
    before->entry = found->first();
    before->file = dataFile(shared.programFolder, listed.kind, before->entry.name);
    before->isAnothers = isAnothersFile(shared, before->file, listed.number);
    return {};
}

// Whether another file than the entry's lies under the name, whoever made it: the entry would lead
// to it from then on, and take it along when it is deleted.
bool isFileThere(const Shared& shared, const Before& before, const QString& newName)
{
    const QByteArray there =
        data_files::identity(dataFile(shared.programFolder, before.entry.kind, newName));
    return !there.isEmpty() && there != data_files::identity(before.file);
}

// Why the entry may not get the name; empty when it may. It may keep any that it has.
QString whyNotRenamed(const Shared& shared, const Entries& ofKind, const Before& before,
                      const QString& newName)
{
    if (newName == before.entry.name)
        return {};
    if (isTaken(ofKind, newName, before.entry.number))
        return NameTaken;
    const QString reason = whyNoNewName(newName);
    return reason.isEmpty() && isFileThere(shared, before, newName) ? NameTaken : reason;
}

Outcome changeEntry(Shared& shared, const DataFileEntry& selected, const QString& newName,
                    const QString& newPassword, Before* before)
{
    storage::Transaction change(*shared.MainConnection);
    if (!change.isActive())
        return {Outcome::Failed, {}};
    const Outcome found = reread(shared, selected, before);
    if (found.kind != Outcome::Written)
        return found;
    const std::optional<Entries> ofKind = readEntries(shared, registered, selected.kind);
    if (!ofKind)
        return {Outcome::Failed, {}};
    const QString refusal = whyNotRenamed(shared, *ofKind, *before, newName);
    if (!refusal.isEmpty())
        return {Outcome::Refused, refusal};
    const bool written = openRegistry(shared, rowByNumber + QString::number(selected.number))
        && writeEntry(shared, newName, newPassword) && change.commit();
    return {written ? Outcome::Written : Outcome::Failed, {}};
}

Outcome removeEntry(Shared& shared, const DataFileEntry& asked, Before* before)
{
    storage::Transaction change(*shared.MainConnection);
    if (!change.isActive())
        return {Outcome::Failed, {}};
    const Outcome found = reread(shared, asked, before);
    if (found.kind != Outcome::Written)
        return found;
    if (before->entry.name != asked.name)
        return {Outcome::Refused, RenamedMeanwhile};
    const bool removed =
        RunStatement(shared, deleteByNumber + QString::number(asked.number)) && change.commit();
    return {removed ? Outcome::Written : Outcome::Failed, {}};
}

// True when the row was written; else tells why it was not.
bool isWritten(Shared& shared, const Outcome& outcome, QStringView failure)
{
    switch (outcome.kind) {
    case Outcome::Written:
        return true;
    case Outcome::Refused:
        shared.messages.refuse(outcome.refusal);
        return false;
    case Outcome::Gone:
        tellRowGone(shared.messages);
        return false;
    case Outcome::Failed:
        break;
    }
    return tellMainDatabaseFailed(shared, failure);
}

void tellMoved(const Shared& shared, const QString& from, const QString& to)
{
    if (shared.dataFileMoved)
        shared.dataFileMoved(from, to);
}

// False when the file could not be given its new name.
bool moveFile(const Shared& shared, const Before& before, const QString& newFile)
{
    if (before.isAnothers || before.file.isEmpty())
        return false;
    const QByteArray identity = data_files::identity(before.file);
    // Another spelling of the name that the file has leads to it already.
    const bool isThere = !identity.isEmpty() && data_files::identity(newFile) == identity;
    if (!isThere && data_files::rename(before.file, newFile, QString::fromUtf16(DatabasePassword)))
        return false;
    tellMoved(shared, before.file, newFile);
    return true;
}

void tellAnd(Shared& shared, const QString& firstLine, const QString& secondLine)
{
    shared.MessageText = firstLine + u"\r\n"_s + secondLine;
    shared.messages.tell(shared.MessageText);
}

} // namespace

std::optional<QList<DataFileEntry>> ListDataFiles(Shared& shared, DataKind kind)
{
    return readOrTell(shared, registered, kind);
}

std::optional<QList<DataFileEntry>> ListDataFilesForOpen(Shared& shared,
                                                         std::optional<DataKind> kind)
{
    return readOrTell(shared, allByName, kind);
}

bool AddDataFile(Shared& shared, DataKind kind, const QString& name, const QString& password)
{
    if (!isNameGiven(shared, name))
        return false;
    const QString reason = whyNoNewName(name);
    if (!reason.isEmpty()) {
        shared.messages.refuse(reason);
        return false;
    }
    if (!reachMainDatabase(shared))
        return false;
    const QString file = dataFile(shared.programFolder, kind, name);
    if (data_files::exists(file)) {
        shared.messages.refuse(NameTaken);
        return false;
    }
    if (!isWritten(shared, appendEntry(shared, kind, name, password), SaveFailedText))
        return false;
    data_files::create(templateFile(shared.programFolder, kind), file);
    tellAnd(shared, u"データ名 『 "_s + name + u" 』 が追加されました。"_s,
            u"パスワードは 『 "_s + password + u" 』 です。"_s);
    return true;
}

bool ChangeDataFile(Shared& shared, const DataFileEntry& selected, const QString& newName,
                    const QString& newPassword)
{
    if (!isNameGiven(shared, newName) || !reachMainDatabase(shared))
        return false;
    Before before;
    const Outcome outcome = changeEntry(shared, selected, newName, newPassword, &before);
    if (!isWritten(shared, outcome, SaveFailedText))
        return false;

    const DataFileEntry& old = before.entry;
    if (old.name != newName
        && !moveFile(shared, before, dataFile(shared.programFolder, old.kind, newName))) {
        // The row stays changed: row first, file second.
        shared.MessageText = u"ﾌｧｲﾙが見つかりません。"_s;
        shared.messages.refuse(shared.MessageText);
        return false;
    }
    tellAnd(shared,
            u"データ名が 『 "_s + old.name + u" 』 から 『 "_s + newName
                + u" 』 に変更されました。"_s,
            u"パスワードが 『 "_s + old.password + u" 』 から 『 "_s + newPassword
                + u" 』 に変更されました。"_s);
    return true;
}

bool DeleteDataFile(Shared& shared, const DataFileEntry& selected)
{
    if (!reachMainDatabase(shared))
        return false;
    Before before;
    if (!isWritten(shared, reread(shared, selected, &before), ReadFailedText))
        return false;
    const DataFileEntry asked = before.entry;
    const Answer answer =
        shared.messages.show(MessageStyle::ExclamationYesNo, asked.name + u" を削除しますか？"_s,
                             QString::fromUtf16(AppTitleText), {}, DefaultButton::No);
    shared.DialogAnswer = QString::number(static_cast<int>(answer));
    // Much can have happened while the user thought.
    if (answer != Answer::Yes || !reachMainDatabase(shared)
        || !isWritten(shared, removeEntry(shared, asked, &before), DeleteFailedText))
        return false;
    if (!before.isAnothers && !before.file.isEmpty() && !data_files::remove(before.file))
        tellMoved(shared, before.file, {});
    return true;
}

bool isRegisteredFile(Shared& shared, const QString& path)
{
    if (!shared.MainConnection)
        return true;
    const std::optional<Entries> entries = readEntries(shared, registered, std::nullopt);
    return !entries || isLedTo(shared, *entries, path);
}

} // namespace core
