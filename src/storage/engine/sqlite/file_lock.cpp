#include "storage/engine/sqlite/file_lock.h"

#include "storage/base/system_error.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace storage::engine::sqlite {

using namespace Qt::StringLiterals;

namespace {

// By canonical path, so that two ways to one file meet at one lock. The file itself may be missing
// yet, its folder not.
QString lockPath(const QString& dataFile)
{
    const QFileInfo named(dataFile);
    const QString canonical = named.canonicalFilePath();
    const QFileInfo real(canonical.isEmpty() ? named.absoluteFilePath() : canonical);
    const QString folder = QFileInfo(real.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? QString() : folder + u'/' + real.completeBaseName() + u".ldb"_s;
}

Error inUse(LockKind wanted)
{
    return {ErrorKind::InUse,
            wanted == LockKind::Exclusive
                ? u"ファイルは他で使用中の為、排他モードで開くことができません。"_s
                : u"ファイルは他で排他モードで使用中の為、開くことができません。"_s};
}

Error cannotMake(int systemError)
{
    const ErrorKind kind = kindOfSystemError(systemError).value_or(ErrorKind::Other);
    if (kind == ErrorKind::ReadOnly)
        return folderNotWritable(systemError);
    return {.kind = kind,
            .message = kind == ErrorKind::Full ? u"ディスクの空き容量が不足しています。"_s
                                               : u"ロックファイルを作成できません。"_s,
            .details = qt_error_string(systemError)};
}

// Waits for nobody; a signal that comes in between is no refusal.
int tryLock(int descriptor, int operation)
{
    int result = 0;
    do {
        result = ::flock(descriptor, operation | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    return result == 0 ? 0 : errno;
}

} // namespace

std::unique_ptr<Lock> FileLock::acquire(const QString& dataFile, LockKind kind, Error* error)
{
    const QString path = lockPath(dataFile);
    if (path.isEmpty()) {
        *error = {ErrorKind::Missing, u"ファイルのあるフォルダーが見つかりません。"_s};
        return {};
    }
    const QByteArray name = QFile::encodeName(path);
    int descriptor = ::open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    const int refusal = errno;
    // Made by another user who may write it alone: reading is enough for a lock.
    if (descriptor < 0 && refusal == EACCES)
        descriptor = ::open(name.constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        *error = cannotMake(refusal);
        return {};
    }
    auto lock = std::make_unique<FileLock>(descriptor);
    const int refused = tryLock(descriptor, kind == LockKind::Exclusive ? LOCK_EX : LOCK_SH);
    lock->m_held = refused == 0;
    if (lock->m_held)
        return lock;
    *error = refused == EWOULDBLOCK ? inUse(kind) : cannotMake(refused);
    return {};
}

bool FileLock::raise()
{
    if (tryLock(m_descriptor, LOCK_EX) == 0)
        return true;
    m_held = tryLock(m_descriptor, LOCK_SH) == 0; // a conversion gives the old lock up first
    return false;
}

bool FileLock::lower()
{
    m_held = tryLock(m_descriptor, LOCK_SH) == 0;
    return m_held;
}

FileLock::~FileLock()
{
    ::close(m_descriptor);
}

} // namespace storage::engine::sqlite
