#include "storage/engine/sqlite/error.h"

#include <sqlite3.h>

#include <cerrno>

namespace storage::engine::sqlite {

using namespace Qt::StringLiterals;

namespace {

QString kindMessage(ErrorKind kind)
{
    switch (kind) {
    case ErrorKind::Name:
        return u"表または列がみつかりません。"_s;
    case ErrorKind::Type:
        return u"値が列の型または長さに合いません。"_s;
    case ErrorKind::Constraint:
        return u"同じ値がすでに登録されている為、書き込めません。"_s;
    case ErrorKind::Busy:
        return u"他で書き込み中の為、待ち時間内に処理できませんでした。"_s;
    case ErrorKind::Missing:
        return u"ファイルがみつかりません。"_s;
    case ErrorKind::Unreadable:
        return u"ファイルを読み込めません。ファイルが壊れているか、このプログラムのファイルではありません。"_s;
    case ErrorKind::ReadOnly:
        return u"ファイルまたはフォルダに書き込めません。"_s;
    case ErrorKind::Full:
        return u"ディスクの空き容量が不足しています。"_s;
    case ErrorKind::Exists:
        return u"同じ名前のファイルが存在します。"_s;
    case ErrorKind::State:
        return u"この状態では実行できません。"_s;
    default:
        return u"データベースの処理に失敗しました。"_s;
    }
}

ErrorKind systemKind(int systemError, ErrorKind fallback)
{
    switch (systemError) {
    case ENOSPC:
    case EDQUOT:
        return ErrorKind::Full;
    case EROFS:
    case EACCES:
    case EPERM:
        return ErrorKind::ReadOnly;
    default:
        return fallback;
    }
}

ErrorKind kindOf(sqlite3* handle)
{
    const int code = sqlite3_extended_errcode(handle);
    if (code == SQLITE_CONSTRAINT_CHECK)
        return ErrorKind::Type;
    if (code == SQLITE_IOERR_SHORT_READ || code == SQLITE_IOERR_CORRUPTFS)
        return ErrorKind::Unreadable;
    switch (code & 0xFF) {
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_FORMAT:
        return ErrorKind::Unreadable;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return ErrorKind::Busy;
    case SQLITE_CANTOPEN: // once a file is open: its journal cannot be made
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return systemKind(sqlite3_system_errno(handle), ErrorKind::ReadOnly);
    case SQLITE_IOERR:
        return systemKind(sqlite3_system_errno(handle), ErrorKind::Other);
    case SQLITE_FULL:
        return ErrorKind::Full;
    case SQLITE_CONSTRAINT:
        return ErrorKind::Constraint;
    case SQLITE_MISMATCH:
    case SQLITE_TOOBIG:
        return ErrorKind::Type;
    default:
        return ErrorKind::Other;
    }
}

} // namespace

Error makeError(ErrorKind kind, const QString& detail)
{
    Error error;
    error.kind = kind;
    error.message = kindMessage(kind);
    if (!detail.isEmpty())
        error.message += u'（' + detail + u'）';
    return error;
}

Error lastError(sqlite3* handle)
{
    const ErrorKind kind = kindOf(handle);
    if (kind == ErrorKind::Unreadable)
        return makeError(kind);
    return makeError(kind, QString::fromUtf8(sqlite3_errmsg(handle)));
}

} // namespace storage::engine::sqlite
