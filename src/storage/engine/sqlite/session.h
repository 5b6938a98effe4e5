#pragma once

#include "storage/engine/engine.h"
#include "storage/engine/sqlite/dialect.h"
#include "storage/engine/sqlite/statement_cache.h"

#include <chrono>
#include <memory>

struct sqlite3;

namespace storage::engine::sqlite {

struct HandleCloser {
    void operator()(sqlite3* handle) const;
};
using Handle = std::unique_ptr<sqlite3, HandleCloser>;

// One open file. Made by openEmbedded() and createEmbedded() (opening.cpp).
class SqliteSession final : public Session {
public:
    SqliteSession(Handle handle, bool foreignTextIndexes);

    const sql::Dialect& dialect() const override { return m_dialect; }
    std::unique_ptr<Cursor> prepare(const sql::Emitted& statement, Error* error) override;
    std::optional<Error> run(const sql::Emitted& statement, qint64* affected) override;
    qint64 lastRowAddress() const override;

    std::optional<Error> begin(int depth) override;
    std::optional<Error> commit(int depth) override;
    std::optional<Error> rollBack(int depth) override;

    std::optional<Error> readCatalog(schema::Catalog* catalog) override;
    std::optional<Error> create(const schema::Definition& definition) override;
    std::optional<Error> completeIndexes(const schema::Definition& definition) override;
    bool hasForeignTextIndexes() const override { return m_foreignTextIndexes; }
    std::optional<Error> renewTextIndexes(bool onlyCopy) override;
    std::optional<Error> compactInto(const QString& path) override;

private:
    // Runs the steps in a transaction of their own; the first failure undoes them all.
    template <typename Steps> std::optional<Error> inTransaction(Steps steps);
    std::optional<Error> runText(const QString& statement);
    // The first column of all rows, as texts.
    std::optional<Error> readTexts(const sql::Emitted& statement, QStringList* texts);
    bool wasUndone() const;

    Handle m_handle;
    StatementCache m_statements; // they go before the file is closed
    SqliteDialect m_dialect;
    bool m_foreignTextIndexes;
    bool m_inTransaction = false;
    std::chrono::steady_clock::time_point m_lastWrite; // the end of the last transaction
};

} // namespace storage::engine::sqlite
