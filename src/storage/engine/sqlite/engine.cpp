#include "storage/engine/sqlite/engine.h"

#include "storage/engine/sqlite/file_lock.h"
#include "storage/engine/sqlite/file_steps.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace storage::engine::sqlite {

using namespace Qt::StringLiterals;

namespace {

// The copy has the same cipher and password.
const QString CompactInto = u"VACUUM INTO ?"_s;

// A new file may not find a journal of its name: it would be played into it.
std::optional<Error> refuseTaken(const QString& path)
{
    if (QFileInfo::exists(path) || QFileInfo::exists(journalOf(path)))
        return Error{ErrorKind::Exists, u"同じ名前のファイルがあります。"_s};
    return std::nullopt;
}

// Rolls a journal left by a crash back into the file. What is still there after that is no longer
// of any use to the file.
std::optional<Error> settleJournal(SqliteEngine& engine, const QString& path,
                                   const QString& password)
{
    if (!QFileInfo::exists(journalOf(path)))
        return std::nullopt;
    Error error;
    if (!engine.open(path, password, &error))
        return error;
    return QFileInfo::exists(journalOf(path)) ? removeFile(journalOf(path)) : std::nullopt;
}

} // namespace

QString journalOf(const QString& path)
{
    return path + u"-journal"_s;
}

std::unique_ptr<Lock> SqliteEngine::lock(const QString& name, LockKind kind, Error* error)
{
    return FileLock::acquire(name, kind, error);
}

bool SqliteEngine::exists(const QString& name)
{
    return QFileInfo(name).isFile();
}

QByteArray SqliteEngine::identity(const QString& name)
{
    struct stat found = {};
    if (::stat(QFile::encodeName(name).constData(), &found) != 0)
        return {};
    return QByteArray::number(static_cast<quint64>(found.st_dev)) + '-'
        + QByteArray::number(static_cast<quint64>(found.st_ino));
}

std::optional<Error> SqliteEngine::copy(const QString& source, const QString& name)
{
    QByteArray bytes;
    if (const auto error = readFile(source, &bytes))
        return error;
    if (auto error = refuseTaken(name))
        return error;
    // Under its own name only when it is whole; a half copy of an earlier try is in nobody's use.
    const QString draft = name + u".new"_s;
    if (QFileInfo::exists(draft)) {
        if (auto error = removeFile(draft))
            return error;
    }
    if (auto error = writeNewFile(draft, bytes))
        return error;
    auto error = moveFile(draft, name);
    if (error)
        removeFile(draft);
    return error;
}

std::optional<Error> SqliteEngine::rename(const QString& from, const QString& to,
                                          const QString& password)
{
    if (auto error = refuseTaken(to))
        return error;
    if (auto error = settleJournal(*this, from, password))
        return error;
    return moveFile(from, to);
}

std::optional<Error> SqliteEngine::remove(const QString& name)
{
    const bool hasJournal = QFileInfo::exists(journalOf(name));
    const auto error = removeFile(name);
    const bool fileStays = error && error->kind != ErrorKind::Missing;
    if (fileStays || !hasJournal)
        return error;
    return removeFile(journalOf(name));
}

std::optional<Error> SqliteEngine::compact(const QString& source, const QString& target,
                                           const QString& password)
{
    if (auto error = refuseTaken(target))
        return error;
    if (auto error = settleJournal(*this, source, password))
        return error;
    Error error;
    const auto session = open(source, password, &error);
    if (!session)
        return error;
    auto failure = session->run({CompactInto, {Value(target)}}, nullptr);
    if (!failure)
        failure = syncFile(target);
    if (failure) {
        QFile::remove(target);
        QFile::remove(journalOf(target));
    }
    return failure;
}

// A link stays one: what it leads to is replaced.
std::optional<Error> SqliteEngine::replace(const QString& draft, const QString& name)
{
    return replaceFile(draft, QFileInfo(name).canonicalFilePath());
}

} // namespace storage::engine::sqlite

storage::engine::Engine& storage::engine::embedded()
{
    static sqlite::SqliteEngine engine;
    return engine;
}
