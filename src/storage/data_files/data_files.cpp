#include "storage/data_files/data_files.h"

#include "storage/data_files/file_lock.h"
#include "storage/data_files/file_steps.h"
#include "storage/engine/engine.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace storage::data_files {

using namespace Qt::StringLiterals;

namespace {

QString journalOf(const QString& path)
{
    return path + u"-journal"_s;
}

// A new file may not find a journal of its name: it would be played into it.
std::optional<Error> refuseTaken(const QString& path)
{
    if (QFileInfo::exists(path) || QFileInfo::exists(journalOf(path)))
        return Error{ErrorKind::Exists, u"同じ名前のファイルがあります。"_s};
    return std::nullopt;
}

std::optional<Error> refuseMissing(const QString& path)
{
    if (!exists(path))
        return Error{ErrorKind::Missing, u"ファイルが見つかりません。"_s};
    return std::nullopt;
}

// Rolls a journal left by a crash back into the file. What is still there after that is no longer
// of any use to the file.
std::optional<Error> settleJournal(const QString& path, const QString& password)
{
    if (!QFileInfo::exists(journalOf(path)))
        return std::nullopt;
    Error error;
    if (!engine::openEmbedded(path, password, &error))
        return error;
    return QFileInfo::exists(journalOf(path)) ? removeFile(journalOf(path)) : std::nullopt;
}

// The step's failure, or the first of the locks that it needs that could not be had.
template <typename Step> std::optional<Error> underLocks(const QStringList& paths, Step step)
{
    std::vector<FileLock> locks;
    for (const QString& path : paths) {
        Error error;
        std::optional<FileLock> lock = FileLock::acquire(path, LockKind::Exclusive, &error);
        if (!lock)
            return error;
        locks.push_back(std::move(*lock));
    }
    return step();
}

// Compacts under locks that are held already.
std::optional<Error> compactLocked(const QString& source, const QString& target,
                                   const QString& password)
{
    if (auto error = refuseTaken(target))
        return error;
    if (auto error = settleJournal(source, password))
        return error;
    Error error;
    const auto session = engine::openEmbedded(source, password, &error);
    if (!session)
        return error;
    if (auto failure = session->upkeep().compactInto(target)) {
        QFile::remove(target);
        QFile::remove(journalOf(target));
        return failure;
    }
    return syncFile(target);
}

} // namespace

bool exists(const QString& path)
{
    return QFileInfo(path).isFile();
}

QByteArray identity(const QString& path)
{
    struct stat found = {};
    if (::stat(QFile::encodeName(path).constData(), &found) != 0)
        return {};
    return QByteArray::number(static_cast<quint64>(found.st_dev)) + '-'
        + QByteArray::number(static_cast<quint64>(found.st_ino));
}

std::optional<Error> create(const QString& templatePath, const QString& path)
{
    QByteArray bytes;
    if (const auto error = readFile(templatePath, &bytes))
        return error;
    return underLocks({path}, [&]() -> std::optional<Error> {
        if (auto error = refuseTaken(path))
            return error;
        // Under its own name only when it is whole; a half copy of an earlier try is in nobody's
        // use.
        const QString draft = path + u".new"_s;
        if (QFileInfo::exists(draft)) {
            if (auto error = removeFile(draft))
                return error;
        }
        if (auto error = writeNewFile(draft, bytes))
            return error;
        auto error = moveFile(draft, path);
        if (error)
            removeFile(draft);
        return error;
    });
}

std::optional<Error> rename(const QString& from, const QString& to, const QString& password)
{
    if (auto error = refuseMissing(from))
        return error;
    return underLocks({from, to}, [&]() -> std::optional<Error> {
        if (auto error = refuseMissing(from))
            return error;
        if (auto error = refuseTaken(to))
            return error;
        if (auto error = settleJournal(from, password))
            return error;
        return moveFile(from, to);
    });
}

std::optional<Error> remove(const QString& path)
{
    return underLocks({path}, [&]() -> std::optional<Error> {
        const bool hasJournal = QFileInfo::exists(journalOf(path));
        const auto error = removeFile(path);
        const bool fileStays = error && error->kind != ErrorKind::Missing;
        if (fileStays || !hasJournal)
            return error;
        return removeFile(journalOf(path));
    });
}

std::optional<Error> compact(const QString& source, const QString& target, const QString& password)
{
    if (auto error = refuseMissing(source))
        return error;
    return underLocks({source, target}, [&] { return compactLocked(source, target, password); });
}

std::optional<Error> compactInPlace(const QString& path, const QString& draft,
                                    const QString& password)
{
    if (auto error = refuseMissing(path))
        return error;
    return underLocks({path, draft}, [&]() -> std::optional<Error> {
        if (auto error = compactLocked(path, draft, password))
            return error;
        // A link stays one: what it leads to is replaced.
        auto error = replaceFile(draft, QFileInfo(path).canonicalFilePath());
        if (error)
            QFile::remove(draft);
        return error;
    });
}

} // namespace storage::data_files
