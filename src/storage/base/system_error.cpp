#include "storage/base/system_error.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace storage {

using namespace Qt::StringLiterals;

std::optional<ErrorKind> kindOfSystemError(int number)
{
    switch (number) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG: // the limit of a file's size, which the user meets as a full disk
        return ErrorKind::Full;
    case EROFS:
    case EACCES:
    case EPERM:
        return ErrorKind::ReadOnly;
    case ESTALE: // a network share: what was open is no longer there
        return ErrorKind::Moved;
    default:
        return std::nullopt;
    }
}

Error folderNotWritable(int number)
{
    return {.kind = ErrorKind::ReadOnly,
            .message = u"ファイルのあるフォルダーに書き込めません。"
                       "フォルダーの書き込み許可を確認して下さい。"_s,
            .details = qt_error_string(number)};
}

std::optional<Error> folderRefusal(const QString& folder)
{
    const QByteArray name = QFile::encodeName(folder);
    const int descriptor = ::open(name.constData(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
    if (descriptor >= 0) {
        ::close(descriptor);
        return std::nullopt;
    }
    int number = errno;
    std::optional<ErrorKind> kind = kindOfSystemError(number);
    // A file system without nameless files says nothing about the folder.
    if (!kind && ::access(name.constData(), W_OK) != 0) {
        number = errno;
        kind = kindOfSystemError(number);
    }
    if (kind == ErrorKind::Full)
        return Error{.kind = ErrorKind::Full,
                     .message = u"ディスクの空き容量が不足しています。"_s,
                     .details = qt_error_string(number)};
    if (kind)
        return folderNotWritable(number);
    return std::nullopt;
}

} // namespace storage
