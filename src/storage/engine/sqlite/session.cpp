#include "storage/engine/sqlite/session.h"

#include "storage/engine/sqlite/busy_wait.h"
#include "storage/engine/sqlite/cursor.h"
#include "storage/engine/sqlite/error.h"

#include <sqlite3.h>

namespace storage::engine::sqlite {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype MostWays = 256;

QString savepoint(int depth)
{
    return u"level"_s + QString::number(depth);
}

} // namespace

void HandleCloser::operator()(sqlite3* handle) const
{
    sqlite3_close_v2(handle);
}

SqliteSession::SqliteSession(Handle handle, const FileState& state)
    : m_handle(std::move(handle)), m_upkeep(*this, state)
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

// The engine's plan says so in words: a line for each table, the leading one first, and one for
// each sort.
Way SqliteSession::wayOf(const sql::Emitted& statement)
{
    const auto known = m_ways.constFind(statement.text);
    if (known != m_ways.constEnd())
        return *known;
    Error ignored;
    const auto plan =
        prepare({u"EXPLAIN QUERY PLAN "_s + statement.text, statement.parameters}, &ignored);
    if (!plan)
        return Way::Sorts;
    constexpr int Words = 3;
    QStringList lines;
    while (plan->step() == Cursor::Step::Row)
        lines += plan->value(Words, schema::ColumnType::Text).toText();
    const QString sort = u"USE TEMP B-TREE FOR "_s;
    Way way = Way::WalksAll;
    if (lines.isEmpty() || lines.contains(sort + u"ORDER BY"_s))
        way = Way::Sorts;
    else if (lines.first().startsWith(u"SEARCH "_s)
             || lines.first().startsWith(u"MULTI-INDEX OR"_s)) // an index for each part
        way = Way::WalksSome;
    else if (!lines.filter(sort).isEmpty())
        way = Way::WalksGroups;
    if (m_ways.size() >= MostWays)
        m_ways.clear();
    m_ways.insert(statement.text, way);
    return way;
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
        run({depth == 0 ? u"BEGIN IMMEDIATE"_s : u"SAVEPOINT "_s + savepoint(depth), {}}, nullptr);
    if (!error)
        m_inTransaction = true;
    return error;
}

std::optional<Error> SqliteSession::commit(int depth)
{
    const auto error =
        run({depth == 0 ? u"COMMIT"_s : u"RELEASE "_s + savepoint(depth), {}}, nullptr);
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
        return run({u"ROLLBACK"_s, {}}, nullptr);
    if (auto error = run({u"ROLLBACK TO "_s + savepoint(depth), {}}, nullptr))
        return error;
    return run({u"RELEASE "_s + savepoint(depth), {}}, nullptr);
}

} // namespace storage::engine::sqlite
