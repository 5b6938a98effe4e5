#include "storage/base/system_error.h"
#include "storage/engine/sqlite/busy_wait.h"
#include "storage/engine/sqlite/cursor.h"
#include "storage/engine/sqlite/engine.h"
#include "storage/engine/sqlite/error.h"
#include "storage/engine/sqlite/functions.h"
#include "storage/engine/sqlite/meta.h"
#include "storage/engine/sqlite/session.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace storage::engine::sqlite {

using namespace Qt::StringLiterals;

namespace {

// One file that can be copied at any moment when no copy of the program writes. EXTRA waits for the
// journal's removal too: a power cut could bring it back, and it would undo what was acknowledged.
// Sorts stay in memory, so that nothing of an encrypted file reaches the disk in the clear. The
// cache is in KiB.
const QStringList Settings = {
    u"PRAGMA journal_mode = DELETE"_s, u"PRAGMA synchronous = EXTRA"_s,
    u"PRAGMA temp_store = MEMORY"_s,   u"PRAGMA cache_size = -32768"_s,
    u"PRAGMA foreign_keys = OFF"_s,    u"PRAGMA cell_size_check = ON"_s,
};
const QString LaterFormat =
    u"新しい版のコルヴァン３で使われているファイルの為、この版では開けません。"_s;
const QString ReadMeta = u"SELECT name, value FROM "_s + meta::Table;

// A file may come from anywhere: its schema gets no powers beyond tables, indexes and our
// functions.
bool restrict(sqlite3* handle)
{
    int ignored = 0;
    return sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, &ignored) == SQLITE_OK
        && sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, &ignored) == SQLITE_OK
        && sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, &ignored) == SQLITE_OK
        && sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_VIEW, 0, &ignored) == SQLITE_OK;
}

bool setKey(sqlite3* handle, const QString& password)
{
    const QByteArray key = password.toUtf8();
    return sqlite3mc_config(handle, "cipher", sqlite3mc_cipher_index("aegis")) > 0
        && sqlite3_key_v2(handle, "main", key.constData(), static_cast<int>(key.size()))
        == SQLITE_OK;
}

// Asked before anything is read: an engine that may not write falls back to reading.
std::optional<Error> writeRefusal(sqlite3* handle, const QFileInfo& file)
{
    const QByteArray folder = QFile::encodeName(file.canonicalPath());
    if (access(folder.constData(), W_OK) != 0)
        return folderNotWritable(errno);
    if (sqlite3_db_readonly(handle, "main") == 0)
        return {};
    return makeError(ErrorKind::ReadOnly);
}

Handle openHandle(const QFileInfo& file, const QString& password, Error* error)
{
    sqlite3* raw = nullptr;
    const int code = sqlite3_open_v2(file.absoluteFilePath().toUtf8().constData(), &raw,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE, nullptr);
    Handle handle(raw);
    if (code != SQLITE_OK) {
        *error = raw ? lastError(raw) : makeError(ErrorKind::Other);
        if (error->kind == ErrorKind::Moved) // gone between two looks at it
            *error = makeError(ErrorKind::Missing);
        return {};
    }
    if (const auto refusal = writeRefusal(raw, file)) {
        *error = *refusal;
        return {};
    }
    waitForLocks(raw);
    if (!restrict(raw) || !registerFunctions(raw) || !setKey(raw, password)) {
        *error = lastError(raw);
        return {};
    }
    return handle;
}

// What a file says of itself.
struct Found {
    QString format;
    QString textVersion;
};

bool runAll(sqlite3* handle, const QStringList& statements)
{
    for (const QString& statement : statements) {
        const auto prepared = prepare(handle, {statement, {}});
        if (!prepared)
            return false;
        int code = step(prepared.get());
        while (code == SQLITE_ROW)
            code = step(prepared.get());
        if (code != SQLITE_DONE)
            return false;
    }
    return true;
}

std::optional<qint64> readNumber(sqlite3* handle, const QString& statement)
{
    const auto prepared = prepare(handle, {statement, {}});
    if (!prepared || step(prepared.get()) != SQLITE_ROW)
        return {};
    return sqlite3_column_int64(prepared.get(), 0);
}

// The engine itself misses a file that ends inside its last page until it reads that page.
bool isWhole(sqlite3* handle, const QFileInfo& file)
{
    const auto pages = readNumber(handle, u"PRAGMA page_count"_s);
    const auto pageSize = readNumber(handle, u"PRAGMA page_size"_s);
    return pages && pageSize && *pages > 0
        && QFileInfo(file.absoluteFilePath()).size() >= *pages * *pageSize;
}

// Nothing when this is no data file.
std::optional<Found> readMeta(sqlite3* handle)
{
    Statement rows = prepare(handle, {ReadMeta, {}});
    if (!rows)
        return {};
    SqliteCursor cursor(handle, std::move(rows));
    Found found;
    Cursor::Step step = cursor.step();
    for (; step == Cursor::Step::Row; step = cursor.step()) {
        const QString name = cursor.value(0, schema::ColumnType::Text).toText();
        const QString value = cursor.value(1, schema::ColumnType::Text).toText();
        if (name == meta::Format)
            found.format = value;
        else if (name == meta::TextVersion)
            found.textVersion = value;
    }
    if (step == Cursor::Step::Failed || found.format.isEmpty())
        return {};
    return found;
}

// Makes sure that this is a whole data file that the key opens, and gives what it says of itself.
// One read transaction, so that no other copy changes the file's size meanwhile.
std::optional<Found> inspect(sqlite3* handle, const QFileInfo& file)
{
    if (!runAll(handle, Settings) || !runAll(handle, {u"BEGIN"_s}))
        return {};
    std::optional<Found> found = readMeta(handle);
    if (!found || !isWhole(handle, file) || !runAll(handle, {u"COMMIT"_s}))
        return {};
    return found;
}

// Whatever stands against reading is the one message, but what has nothing to do with its content.
Error openingError(sqlite3* handle)
{
    Error error = lastError(handle);
    switch (error.kind) {
    case ErrorKind::Busy:
    case ErrorKind::Moved:
    case ErrorKind::ReadOnly:
    case ErrorKind::Full:
        return error;
    default:
        error.kind = ErrorKind::Unreadable;
        error.message = makeError(ErrorKind::Unreadable).message;
        return error;
    }
}

Error creationError(int number)
{
    if (number == EEXIST)
        return makeError(ErrorKind::Exists);
    if (number == ENOENT)
        return makeError(ErrorKind::Missing);
    const ErrorKind kind = kindOfSystemError(number).value_or(ErrorKind::Other);
    if (kind == ErrorKind::ReadOnly)
        return folderNotWritable(number);
    Error error = makeError(kind);
    error.details = qt_error_string(number);
    return error;
}

} // namespace

std::unique_ptr<Session> SqliteEngine::open(const QString& name, const QString& password,
                                            Error* error)
{
    const QFileInfo file(name);
    if (!file.exists()) {
        *error = makeError(ErrorKind::Missing);
        return {};
    }
    if (!file.isFile() || file.size() == 0) {
        *error = makeError(ErrorKind::Unreadable);
        return {};
    }
    Handle handle = openHandle(file, password, error);
    if (!handle)
        return {};
    const std::optional<Found> found = inspect(handle.get(), file);
    if (!found) {
        *error = openingError(handle.get());
        return {};
    }
    const bool isFormer = found->format == meta::FormerFormat;
    if (!isFormer && found->format != meta::CurrentFormat) {
        *error = {ErrorKind::Unreadable, LaterFormat};
        return {};
    }
    return std::make_unique<SqliteSession>(
        std::move(handle), FileState{isFormer, found->textVersion != meta::ownTextVersion()});
}

std::unique_ptr<Session> SqliteEngine::create(const QString& name, const QString& password,
                                              Error* error)
{
    if (QFile::exists(journalOf(name))) {
        *error = makeError(ErrorKind::Exists);
        return {};
    }
    const int descriptor =
        ::open(QFile::encodeName(name).constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        *error = creationError(errno);
        return {};
    }
    ::close(descriptor);
    Handle handle = openHandle(QFileInfo(name), password, error);
    if (handle && runAll(handle.get(), Settings))
        return std::make_unique<SqliteSession>(std::move(handle), FileState());
    if (handle)
        *error = lastError(handle.get());
    handle.reset();
    QFile::remove(name);
    return {};
}

} // namespace storage::engine::sqlite
