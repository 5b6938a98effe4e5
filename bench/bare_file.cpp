#include "bare_file.h"

#include "storage/engine/sqlite/functions.h"

#include <QFile>
#include <QTextStream>

#include <sqlite3.h>

#include <cstdlib>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

// The same as the program's own settings.
constexpr char Settings[] = "PRAGMA journal_mode = DELETE; PRAGMA synchronous = EXTRA; "
                            "PRAGMA temp_store = MEMORY; PRAGMA cache_size = -32768; "
                            "PRAGMA cell_size_check = ON;";

} // namespace

void giveUp(const QString& what)
{
    QTextStream(stderr) << "corvane_bench: " << what << Qt::endl;
    std::exit(1);
}

void BareFile::Closer::operator()(sqlite3* handle) const
{
    sqlite3_close_v2(handle);
}

BareFile::BareFile(const QString& path, const QString& password)
{
    sqlite3* raw = nullptr;
    const int opened =
        sqlite3_open_v2(path.toUtf8().constData(), &raw, SQLITE_OPEN_READWRITE, nullptr);
    m_handle.reset(raw);
    const QByteArray key = password.toUtf8();
    const bool ready = opened == SQLITE_OK
        && (key.isEmpty() || sqlite3_key(raw, key.constData(), int(key.size())) == SQLITE_OK)
        && storage::engine::sqlite::registerFunctions(raw)
        && sqlite3_exec(raw, Settings, nullptr, nullptr, nullptr) == SQLITE_OK;
    if (!ready)
        giveUp(path + u": "_s + QString::fromUtf8(sqlite3_errmsg(raw)));
}

qint64 BareFile::readAll(const QString& statement) const
{
    sqlite3_stmt* prepared = nullptr;
    const QByteArray text = statement.toUtf8();
    sqlite3_prepare_v2(m_handle.get(), text.constData(), int(text.size()), &prepared, nullptr);
    const int columns = sqlite3_column_count(prepared);
    qint64 rows = 0;
    int step = SQLITE_ERROR;
    while (prepared && (step = sqlite3_step(prepared)) == SQLITE_ROW) {
        ++rows;
        for (int column = 0; column < columns; ++column) {
            const void* bytes = sqlite3_column_text(prepared, column);
            const QString value = QString::fromUtf8(static_cast<const char*>(bytes),
                                                    sqlite3_column_bytes(prepared, column));
        }
    }
    sqlite3_finalize(prepared);
    if (step != SQLITE_DONE)
        giveUp(statement + u": "_s + QString::fromUtf8(sqlite3_errmsg(m_handle.get())));
    return rows;
}

void writePlainCopy(const QString& path, const QString& password, const QString& copy)
{
    if (!QFile::copy(path, copy))
        giveUp(copy + u" cannot be written."_s);
    sqlite3* handle = nullptr;
    const QByteArray key = password.toUtf8();
    sqlite3_open_v2(copy.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    const bool done = sqlite3_key(handle, key.constData(), int(key.size())) == SQLITE_OK
        && storage::engine::sqlite::registerFunctions(handle)
        && sqlite3_rekey(handle, nullptr, 0) == SQLITE_OK;
    const QString reason = QString::fromUtf8(sqlite3_errmsg(handle));
    sqlite3_close_v2(handle);
    if (!done) {
        QFile::remove(copy);
        giveUp(copy + u": "_s + reason);
    }
}

} // namespace bench
