#include "storage/engine/engine.h"
#include "storage/engine/sqlite/dialect.h"
#include "storage_contract/scratch_file.h"

using namespace Qt::StringLiterals;
using namespace storage;
using namespace storage::engine;

namespace {

// An engine that keeps its data as the embedded one does, but says otherwise what the embedded one
// leaves at its default in a SELECT: tables are named with their schema, an order says where Null
// stands, columns of a union say their type, patterns are spelled in another way, and no index is
// read for a range of keys. What the rooms above take for granted of the embedded engine alone
// fails with it.

// Stands before every pattern that is bound, and is taken off again where it is used.
const QString PatternMark = u"pattern:"_s;

class VerboseDialect final : public sqlite::SqliteDialect {
public:
    QString source(const schema::Table& table, const QString& alias) const override
    {
        return u"main."_s + name(table.name()) + u" AS "_s
            + name(alias.isEmpty() ? table.name() : alias);
    }
    bool keysAreBytes() const override { return false; }
    QString ordered(const QString& expression, bool descending) const override
    {
        return expression + (descending ? u" DESC NULLS LAST"_s : u" ASC NULLS FIRST"_s);
    }
    QString typed(const QString& expression, schema::ColumnType type) const override
    {
        return u"CAST("_s + expression + u" AS "_s + wordFor(type) + u')';
    }
    QString likePattern(const QString& pattern) const override { return PatternMark + pattern; }
    QString like(const QStringList& parts, const QString& pattern) const override
    {
        return SqliteDialect::like(parts,
                                   u"substr("_s + pattern + u", "_s
                                       + QString::number(PatternMark.size() + 1) + u')');
    }
    // What the embedded engine says otherwise by itself is as any engine has it.
    QString inListOrder() const override { return Dialect::inListOrder(); }
    QString unindexed(const QString& expression) const override { return expression; }

private:
    static QString wordFor(schema::ColumnType type)
    {
        switch (type) {
        case schema::ColumnType::AutoNumber:
        case schema::ColumnType::Long:
            return u"INTEGER"_s;
        case schema::ColumnType::Real:
            return u"REAL"_s;
        case schema::ColumnType::DateTime:
        case schema::ColumnType::Text:
            break;
        }
        return u"TEXT"_s;
    }
};

class VerboseSession final : public Session {
public:
    explicit VerboseSession(std::unique_ptr<Session> plain) : m_plain(std::move(plain)) {}

    const sql::Dialect& dialect() const override { return m_dialect; }
    std::unique_ptr<Cursor> prepare(const sql::Emitted& statement, Error* error) override
    {
        return m_plain->prepare(statement, error);
    }
    Way wayOf(const sql::Emitted& statement) override { return m_plain->wayOf(statement); }
    std::optional<Error> run(const sql::Emitted& statement, qint64* affected) override
    {
        return m_plain->run(statement, affected);
    }
    std::optional<Error> begin(int depth) override { return m_plain->begin(depth); }
    std::optional<Error> commit(int depth) override { return m_plain->commit(depth); }
    std::optional<Error> rollBack(int depth) override { return m_plain->rollBack(depth); }
    std::optional<Error> readCatalog(schema::Catalog* catalog) override
    {
        return m_plain->readCatalog(catalog);
    }
    Upkeep& upkeep() override { return m_plain->upkeep(); }

private:
    std::unique_ptr<Session> m_plain;
    VerboseDialect m_dialect;
};

std::unique_ptr<Session> verbose(std::unique_ptr<Session> plain)
{
    return plain ? std::make_unique<VerboseSession>(std::move(plain)) : nullptr;
}

class VerboseEngine final : public Engine {
public:
    std::unique_ptr<Lock> lock(const QString& name, LockKind kind, Error* error) override
    {
        return embedded().lock(name, kind, error);
    }
    bool exists(const QString& name) override { return embedded().exists(name); }
    QByteArray identity(const QString& name) override { return embedded().identity(name); }
    std::unique_ptr<Session> open(const QString& name, const QString& password,
                                  Error* error) override
    {
        return verbose(embedded().open(name, password, error));
    }
    std::unique_ptr<Session> create(const QString& name, const QString& password,
                                    Error* error) override
    {
        return verbose(embedded().create(name, password, error));
    }
    std::optional<Error> copy(const QString& source, const QString& name) override
    {
        return embedded().copy(source, name);
    }
    std::optional<Error> rename(const QString& from, const QString& to,
                                const QString& password) override
    {
        return embedded().rename(from, to, password);
    }
    std::optional<Error> remove(const QString& name) override { return embedded().remove(name); }
    std::optional<Error> compact(const QString& source, const QString& target,
                                 const QString& password) override
    {
        return embedded().compact(source, target, password);
    }
    std::optional<Error> replace(const QString& draft, const QString& name) override
    {
        return embedded().replace(draft, name);
    }
};

} // namespace

Engine& engineUnderTest()
{
    static VerboseEngine engine;
    return engine;
}
