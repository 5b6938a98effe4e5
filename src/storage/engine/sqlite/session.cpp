#include "storage/engine/sqlite/session.h"

#include "storage/engine/sqlite/busy_wait.h"
#include "storage/engine/sqlite/cursor.h"
#include "storage/engine/sqlite/error.h"

#include <sqlite3.h>

namespace storage::engine::sqlite {

using namespace Qt::StringLiterals;

namespace {

QString savepoint(int depth)
{
    return u"level"_s + QString::number(depth);
}

} // namespace

void HandleCloser::operator()(sqlite3* handle) const
{
    sqlite3_close_v2(handle);
}

SqliteSession::SqliteSession(Handle handle, bool foreignTextIndexes)
    : m_handle(std::move(handle)), m_foreignTextIndexes(foreignTextIndexes)
{
}

std::unique_ptr<Cursor> SqliteSession::prepare(const sql::Emitted& statement, Error* error)
{
    if (wasUndone()) {
        *error = makeError(ErrorKind::State, u"トランザクションは取り消されています"_s);
        return {};
    }
    Statement prepared = m_statements.take(statement.text);
    if (!prepared)
        prepared = prepareText(m_handle.get(), statement.text);
    if (!prepared || !bindAll(prepared.get(), statement.parameters)) {
        *error = lastError(m_handle.get());
        return {};
    }
    return std::make_unique<SqliteCursor>(m_handle.get(), std::move(prepared), statement.text,
                                          &m_statements);
}

std::optional<Error> SqliteSession::run(const sql::Emitted& statement, qint64* affected)
{
    Error error;
    const std::unique_ptr<Cursor> cursor = prepare(statement, &error);
    if (!cursor)
        return error;
    const qint64 before = sqlite3_total_changes64(m_handle.get());
    Cursor::Step step = cursor->step();
    while (step == Cursor::Step::Row)
        step = cursor->step();
    if (step == Cursor::Step::Failed)
        return cursor->error();
    if (affected)
        *affected = sqlite3_total_changes64(m_handle.get()) - before;
    return {};
}

std::optional<Error> SqliteSession::runText(const QString& statement)
{
    return run({statement, {}}, nullptr);
}

qint64 SqliteSession::lastRowAddress() const
{
    return sqlite3_last_insert_rowid(m_handle.get());
}

// The engine rolls a whole transaction back by itself when the disk is full or fails. Statements
// that were meant to stand inside it must not run by themselves then.
bool SqliteSession::wasUndone() const
{
    return m_inTransaction && sqlite3_get_autocommit(m_handle.get()) != 0;
}

std::optional<Error> SqliteSession::begin(int depth)
{
    const EndOfWait end;
    if (depth == 0)
        letOthersFirst(m_lastWrite);
    const auto error =
        runText(depth == 0 ? u"BEGIN IMMEDIATE"_s : u"SAVEPOINT "_s + savepoint(depth));
    if (!error)
        m_inTransaction = true;
    return error;
}

std::optional<Error> SqliteSession::commit(int depth)
{
    const auto error = runText(depth == 0 ? u"COMMIT"_s : u"RELEASE "_s + savepoint(depth));
    if (!error && depth == 0) {
        m_inTransaction = false;
        m_lastWrite = std::chrono::steady_clock::now();
    }
    return error;
}

std::optional<Error> SqliteSession::rollBack(int depth)
{
    const bool undone = wasUndone();
    if (depth == 0)
        m_inTransaction = false;
    if (undone)
        return {};
    if (depth == 0)
        return runText(u"ROLLBACK"_s);
    if (auto error = runText(u"ROLLBACK TO "_s + savepoint(depth)))
        return error;
    return runText(u"RELEASE "_s + savepoint(depth));
}

std::optional<Error> SqliteSession::compactInto(const QString& path)
{
    return run({u"VACUUM INTO ?"_s, {Value(path)}}, nullptr);
}

} // namespace storage::engine::sqlite
