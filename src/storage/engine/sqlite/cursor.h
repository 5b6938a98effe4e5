#pragma once

#include "storage/engine/engine.h"

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace storage::engine::sqlite {

struct StatementDeleter {
    void operator()(sqlite3_stmt* statement) const;
};
using Statement = std::unique_ptr<sqlite3_stmt, StatementDeleter>;

class StatementCache;

// A prepared statement; null when the engine refuses it.
Statement prepareText(sqlite3* handle, const QString& text);
// False when the engine refuses a value.
bool bindAll(sqlite3_stmt* statement, const QList<sql::Parameter>& parameters);
// Both at once.
Statement prepare(sqlite3* handle, const sql::Emitted& statement);

class SqliteCursor final : public Cursor {
public:
    SqliteCursor(sqlite3* handle, Statement statement);
    // Gives the statement to the cache in the end, which outlives the cursor.
    SqliteCursor(sqlite3* handle, Statement statement, QString text, StatementCache* cache);
    ~SqliteCursor() override;

    Step step() override;
    void limitWork(qint64 rows) override;
    int columnCount() const override { return m_columnCount; }
    qint64 integer(int column) const override;
    Value value(int column, schema::ColumnType type) const override;
    void takeRow(int first, int columns, RowBuffer* rows) const override;
    Error error() const override { return m_error; }

private:
    int stepLimited() const;

    sqlite3* m_handle;
    Statement m_statement;
    QString m_text;
    StatementCache* m_cache = nullptr;
    int m_columnCount;
    int m_work = 0; // 0: without a limit
    Error m_error;
};

} // namespace storage::engine::sqlite
