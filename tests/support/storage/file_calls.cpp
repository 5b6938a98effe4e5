#include "support/storage/power_cut.h"

#include <QDir>
#include <QFile>

#include <cstdarg>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

// The calls that change files, in place of the C library's: each hands on to the system and tells
// the record of a power cut, when there is one. They serve the engine, Qt and our own code alike.

namespace {

QByteArray absolute(const char* path)
{
    const QString named = QFile::decodeName(path);
    return QFile::encodeName(QDir::cleanPath(QDir::current().absoluteFilePath(named)));
}

// The call's result, told to the record when it succeeded.
template <typename Tell> int tellOf(long result, const Tell& tell)
{
    PowerCut* const record = PowerCut::watching();
    if (record && result >= 0)
        tell(*record, static_cast<int>(result));
    return static_cast<int>(result);
}

int renameTold(const char* from, const char* to, unsigned flags)
{
    return tellOf(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, flags),
                  [&](PowerCut& record, int) { record.renamed(absolute(from), absolute(to)); });
}

} // namespace

extern "C" {

int open(const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = va_arg(more, mode_t);
    va_end(more);
    return tellOf(
        syscall(SYS_openat, AT_FDCWD, path, flags, mode),
        [&](PowerCut& record, int opened) { record.opened(opened, absolute(path), flags); });
}

ssize_t write(int descriptor, const void* bytes, size_t size)
{
    PowerCut* const record = PowerCut::watching();
    const off_t offset = record ? lseek(descriptor, 0, SEEK_CUR) : 0;
    const ssize_t done = syscall(SYS_write, descriptor, bytes, size);
    if (record && done > 0)
        record->written(descriptor, offset, {static_cast<const char*>(bytes), done});
    return done;
}

ssize_t pwrite(int descriptor, const void* bytes, size_t size, off_t offset)
{
    const ssize_t done = syscall(SYS_pwrite64, descriptor, bytes, size, offset);
    if (PowerCut* const record = PowerCut::watching(); record && done > 0)
        record->written(descriptor, offset, {static_cast<const char*>(bytes), done});
    return done;
}

int ftruncate(int descriptor, off_t size) noexcept
{
    return tellOf(syscall(SYS_ftruncate, descriptor, size),
                  [&](PowerCut& record, int) { record.cut(descriptor, size); });
}

int fsync(int descriptor)
{
    return tellOf(syscall(SYS_fsync, descriptor),
                  [&](PowerCut& record, int) { record.synced(descriptor); });
}

int fdatasync(int descriptor)
{
    return tellOf(syscall(SYS_fdatasync, descriptor),
                  [&](PowerCut& record, int) { record.synced(descriptor); });
}

int close(int descriptor)
{
    return tellOf(syscall(SYS_close, descriptor),
                  [&](PowerCut& record, int) { record.closed(descriptor); });
}

int unlink(const char* path) noexcept
{
    return tellOf(syscall(SYS_unlinkat, AT_FDCWD, path, 0),
                  [&](PowerCut& record, int) { record.unlinked(absolute(path)); });
}

int rename(const char* from, const char* to) noexcept
{
    return renameTold(from, to, 0);
}

int renameat2(int /*fromFolder*/, const char* from, int /*toFolder*/, const char* to,
              unsigned flags) noexcept
{
    return renameTold(from, to, flags);
}

// Where a file's size has 64 bits anyway, these are the same calls.
static_assert(sizeof(off_t) == sizeof(off64_t));
int open64(const char* path, int flags, ...) __attribute__((alias("open")));
ssize_t pwrite64(int descriptor, const void* bytes, size_t size, off64_t offset)
    __attribute__((alias("pwrite")));
int ftruncate64(int descriptor, off64_t size) noexcept __attribute__((alias("ftruncate")));

} // extern "C"
