#include "storage/engine/sqlite/file_steps.h"

#include "storage/base/system_error.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace storage::engine::sqlite {

using namespace Qt::StringLiterals;

namespace {

// A descriptor that closes itself.
class Descriptor {
public:
    Descriptor(const QString& path, int flags)
        : m_descriptor(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, 0666))
    {
    }
    ~Descriptor()
    {
        if (isOpen())
            ::close(m_descriptor);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    bool sync() const { return ::fsync(m_descriptor) == 0; }
    // Lets the same people use the file as another one. Only the superuser can give a file away:
    // what is not allowed stays as it is.
    void takeRightsOf(const struct stat& other) const
    {
        if (::fchown(m_descriptor, other.st_uid, other.st_gid) != 0)
            (void)!::fchown(m_descriptor, static_cast<uid_t>(-1), other.st_gid);
        (void)::fchmod(m_descriptor, other.st_mode & 07777);
    }
    bool write(QByteArrayView bytes) const
    {
        while (!bytes.isEmpty()) {
            const ssize_t written =
                ::write(m_descriptor, bytes.data(), static_cast<size_t>(bytes.size()));
            if (written < 0 && errno != EINTR)
                return false;
            bytes = bytes.sliced(std::max<ssize_t>(written, 0));
        }
        return true;
    }

private:
    int m_descriptor;
};

Error otherError(const QString& systemsWords)
{
    return {.kind = ErrorKind::Other,
            .message = u"ファイルを操作できません。"_s,
            .details = systemsWords};
}

Error errorOf(int number)
{
    if (number == ENOENT || number == ENOTDIR)
        return {ErrorKind::Missing, u"ファイルが見つかりません。"_s};
    if (number == EEXIST)
        return {ErrorKind::Exists, u"同じ名前のファイルがあります。"_s};
    switch (kindOfSystemError(number).value_or(ErrorKind::Other)) {
    case ErrorKind::ReadOnly:
        return {ErrorKind::ReadOnly, u"ファイルまたはフォルダーに書き込めません。"_s};
    case ErrorKind::Full:
        return {ErrorKind::Full, u"ディスクの空き容量が足りません。"_s};
    case ErrorKind::Moved:
        return {ErrorKind::Missing, u"ファイルが見つかりません。"_s};
    default:
        return otherError(qt_error_string(number));
    }
}

// A new, renamed or removed name is kept over a power cut only when its folder is.
std::optional<Error> syncFolderOf(const QString& path)
{
    const Descriptor folder(QFileInfo(path).absolutePath(), O_RDONLY | O_DIRECTORY);
    // Some file systems cannot sync a folder; there is nothing better to do on them.
    if (!folder.isOpen() || (!folder.sync() && errno != EINVAL))
        return errorOf(errno);
    return std::nullopt;
}

} // namespace

std::optional<Error> readFile(const QString& path, QByteArray* bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return file.exists() ? otherError(file.errorString()) : errorOf(ENOENT);
    }
    *bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return otherError(file.errorString());
    return std::nullopt;
}

std::optional<Error> writeNewFile(const QString& path, const QByteArray& bytes)
{
    const Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL);
    if (!file.isOpen())
        return errorOf(errno);
    if (!file.write(bytes) || !file.sync()) {
        const int number = errno;
        QFile::remove(path);
        return errorOf(number);
    }
    return syncFolderOf(path);
}

std::optional<Error> moveFile(const QString& from, const QString& to)
{
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
    int result =
        ::renameat2(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE);
    if (result != 0 && (errno == EINVAL || errno == ENOSYS)) { // a file system without it
        if (QFileInfo::exists(to))
            return errorOf(EEXIST);
        result = ::rename(source.constData(), target.constData());
    }
    if (result != 0)
        return errorOf(errno);
    return syncFolderOf(to);
}

std::optional<Error> replaceFile(const QString& from, const QString& to)
{
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
    struct stat replaced = {};
    if (::stat(target.constData(), &replaced) != 0)
        return errorOf(errno);
    {
        const Descriptor file(from, O_RDONLY);
        if (!file.isOpen())
            return errorOf(errno);
        file.takeRightsOf(replaced);
        if (!file.sync())
            return errorOf(errno);
    }
    if (::rename(source.constData(), target.constData()) != 0)
        return errorOf(errno);
    return syncFolderOf(to);
}

std::optional<Error> removeFile(const QString& path)
{
    if (::unlink(QFile::encodeName(path).constData()) != 0)
        return errorOf(errno);
    return syncFolderOf(path);
}

std::optional<Error> syncFile(const QString& path)
{
    const Descriptor file(path, O_RDONLY);
    if (!file.isOpen() || !file.sync())
        return errorOf(errno);
    return syncFolderOf(path);
}

} // namespace storage::engine::sqlite
