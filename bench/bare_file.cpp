#include "bare_file.h"

#include "storage/engine/sqlite/functions.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QTextStream>

#include <sqlite3.h>

#include <chrono>
#include <cstdlib>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

// The same as the program's own settings.
constexpr char Settings[] = "PRAGMA journal_mode = DELETE; PRAGMA synchronous = EXTRA; "
                            "PRAGMA temp_store = MEMORY; PRAGMA cache_size = -32768; "
                            "PRAGMA cell_size_check = ON;";
constexpr int StepsBetweenLooks = 2000;

QString textOf(sqlite3_stmt* row, int column)
{
    const void* bytes = sqlite3_column_text(row, column);
    return QString::fromUtf8(static_cast<const char*>(bytes), sqlite3_column_bytes(row, column));
}

void copyRow(sqlite3_stmt* row)
{
    const int columns = sqlite3_column_count(row);
    for (int column = 0; column < columns; ++column)
        const QString value = textOf(row, column);
}

int hasExpired(void* deadline)
{
    return static_cast<QDeadlineTimer*>(deadline)->hasExpired() ? 1 : 0;
}

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

BareFile::Prepared BareFile::prepare(const QString& statement) const
{
    sqlite3_stmt* prepared = nullptr;
    const QByteArray text = statement.toUtf8();
    sqlite3_prepare_v2(m_handle.get(), text.constData(), int(text.size()), &prepared, nullptr);
    return {prepared, sqlite3_finalize};
}

qint64 BareFile::readAll(const QString& statement) const
{
    const Prepared prepared = prepare(statement);
    qint64 rows = 0;
    int step = SQLITE_ERROR;
    while (prepared && (step = sqlite3_step(prepared.get())) == SQLITE_ROW) {
        ++rows;
        copyRow(prepared.get());
    }
    if (step != SQLITE_DONE)
        giveUp(statement + u": "_s + QString::fromUtf8(sqlite3_errmsg(m_handle.get())));
    return rows;
}

std::optional<QList<qint64>> BareFile::read(const HandWritten& rows, double atMost) const
{
    const Prepared outer = prepare(rows.statement);
    const Prepared inner =
        rows.ofRow.isEmpty() ? Prepared{nullptr, sqlite3_finalize} : prepare(rows.ofRow);
    if (!outer || (!inner && !rows.ofRow.isEmpty()))
        return std::nullopt;
    QDeadlineTimer deadline(std::chrono::microseconds(static_cast<qint64>(atMost * 1000)));
    sqlite3_progress_handler(m_handle.get(), StepsBetweenLooks, hasExpired, &deadline);
    QList<qint64> found;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(outer.get())) == SQLITE_ROW) {
        sqlite3_stmt* row = outer.get();
        if (inner) {
            row = inner.get();
            sqlite3_reset(row);
            for (int i = 0; i < sqlite3_column_count(outer.get()); ++i)
                sqlite3_bind_int64(row, i + 1, sqlite3_column_int64(outer.get(), i));
            if (sqlite3_step(row) != SQLITE_ROW)
                break;
        }
        found.append(sqlite3_column_int64(row, 0));
        copyRow(row);
    }
    sqlite3_progress_handler(m_handle.get(), 0, nullptr, nullptr);
    if (step != SQLITE_DONE)
        return std::nullopt;
    return found;
}

QString BareFile::plan(const QString& statement) const
{
    const Prepared prepared = prepare(u"EXPLAIN QUERY PLAN "_s + statement);
    QStringList steps;
    while (prepared && sqlite3_step(prepared.get()) == SQLITE_ROW)
        steps += textOf(prepared.get(), 3);
    return steps.join(u'\n');
}

qint64 BareFile::readNumber(const QString& statement) const
{
    const Prepared prepared = prepare(statement);
    if (!prepared || sqlite3_step(prepared.get()) != SQLITE_ROW)
        giveUp(statement + u": "_s + QString::fromUtf8(sqlite3_errmsg(m_handle.get())));
    return sqlite3_column_int64(prepared.get(), 0);
}

QStringList BareFile::texts(const QString& statement) const
{
    const Prepared prepared = prepare(statement);
    QStringList found;
    while (prepared && sqlite3_step(prepared.get()) == SQLITE_ROW)
        found += textOf(prepared.get(), 0);
    return found;
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
