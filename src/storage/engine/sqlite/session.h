#pragma once

#include "storage/engine/session.h"
#include "storage/engine/sqlite/dialect.h"
#include "storage/engine/sqlite/statement_cache.h"
#include "storage/engine/sqlite/upkeep.h"

#include <QHash>

#include <chrono>
#include <functional>
#include <memory>

struct sqlite3;

namespace storage::engine::sqlite {

struct HandleCloser {
    void operator()(sqlite3* handle) const;
};
using Handle = std::unique_ptr<sqlite3, HandleCloser>;

// One open file. Made in opening.cpp.
class SqliteSession final : public Session {
public:
    SqliteSession(Handle handle, const FileState& state);

    const sql::Dialect& dialect() const override { return m_dialect; }
    std::unique_ptr<Cursor> prepare(const sql::Emitted& statement, Error* error) override;
    Way wayOf(const sql::Emitted& statement) override;
    std::optional<Error> run(const sql::Emitted& statement, qint64* affected) override;

    std::optional<Error> begin(int depth) override;
    std::optional<Error> commit(int depth) override;
    std::optional<Error> rollBack(int depth) override;

    std::optional<Error> readCatalog(schema::Catalog* catalog) override;
    Upkeep& upkeep() override { return m_upkeep; }

    // Gives every row of a statement to `take`.
    std::optional<Error> readRows(const sql::Emitted& statement,
                                  const std::function<void(const Cursor&)>& take);
    // The first column of all rows, as texts.
    std::optional<Error> readTexts(const QString& statement, QStringList* texts);

private:
    bool wasUndone() const;

    Handle m_handle;
    StatementCache m_statements; // they go before the file is closed
    SqliteDialect m_dialect;
    QHash<QString, Way> m_ways; // by the statement's text
    SqliteUpkeep m_upkeep;
    bool m_inTransaction = false;
    std::chrono::steady_clock::time_point m_lastWrite; // the end of the last transaction
};

} // namespace storage::engine::sqlite
