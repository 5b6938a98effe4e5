#include "storage/engine/sqlite/error.h"

#include "storage/base/system_error.h"

#include <QFileInfo>

#include <sqlite3.h>

namespace storage::engine::sqlite {

using namespace Qt::StringLiterals;

namespace {

QString kindMessage(ErrorKind kind)
{
    switch (kind) {
    case ErrorKind::Name:
        return u"表または列が見つかりません。"_s;
    case ErrorKind::Type:
        return u"値が列の型または長さに合いません。"_s;
    case ErrorKind::Constraint:
        return u"同じ値がすでに登録されている為、書き込めません。"_s;
    case ErrorKind::Busy:
        return u"他で使用中の為、待ち時間（10秒）内に処理できませんでした。"
               "他のパソコンや画面で大きな処理が続いている可能性があります。"
               "しばらく待ってからもう一度実行し、続く場合は、他で開いているデータを閉じて下さい。"_s;
    case ErrorKind::Missing:
        return u"ファイルが見つかりません。"_s;
    case ErrorKind::Unreadable:
        return u"ファイルを読み込めません。ファイルが壊れているか、このプログラムのファイルではありません。"_s;
    case ErrorKind::Moved:
        return u"開いているファイルが、移動、名前の変更または削除されています。"
               "元に戻すか、データを開き直して下さい。"_s;
    case ErrorKind::ReadOnly:
        return u"ファイルを読み書きする許可がありません。ファイルの許可を確認して下さい。"_s;
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

QString pathOf(sqlite3* handle)
{
    return QString::fromUtf8(sqlite3_db_filename(handle, "main"));
}

// The engine's own words, with the numbers by which they are looked up.
QString wordsOf(sqlite3* handle)
{
    QString words = QString::fromUtf8(sqlite3_errmsg(handle)) + u" ("_s
        + QString::number(sqlite3_extended_errcode(handle)) + u')';
    if (const int number = sqlite3_system_errno(handle))
        words += u"\n"_s + qt_error_string(number);
    return words;
}

// Why the engine may not write. When it cannot make a journal it tries once more for reading, which
// overwrites the system's reason: so the file and its folder are asked.
Error writeRefusal(sqlite3* handle)
{
    const QFileInfo file(pathOf(handle));
    const bool moved = sqlite3_extended_errcode(handle) == SQLITE_READONLY_DBMOVED;
    if (moved || !file.exists())
        return makeError(ErrorKind::Moved);
    if (auto refusal = folderRefusal(file.canonicalPath()))
        return *refusal;
    const int number = sqlite3_system_errno(handle);
    return makeError(kindOfSystemError(number).value_or(ErrorKind::ReadOnly));
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
        return ErrorKind::ReadOnly;
    case SQLITE_IOERR:
        return kindOfSystemError(sqlite3_system_errno(handle)).value_or(ErrorKind::Other);
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
    const QString words = wordsOf(handle); // before anything else is asked
    const ErrorKind kind = kindOf(handle);
    Error error = kind == ErrorKind::ReadOnly ? writeRefusal(handle) : makeError(kind);
    if (kind == ErrorKind::Unreadable) // of a file that opened it is not in doubt whose it is
        error.message = u"ファイルの一部が壊れている為、読み込めません。"_s;
    error.details = error.details.isEmpty() ? words : words + u"\n"_s + error.details;
    return error;
}

} // namespace storage::engine::sqlite
