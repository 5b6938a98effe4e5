#include "storage/engine/sqlite/error.h"
#include "storage/engine/sqlite/meta.h"
#include "storage/engine/sqlite/session.h"

#include <algorithm>

namespace storage::engine::sqlite {

using namespace Qt::StringLiterals;

namespace {

const QString ReadColumns =
    u"SELECT t.name, c.name, c.type, c.pk, "
    "t.sql LIKE '%PRIMARY KEY AUTOINCREMENT%' "
    "FROM sqlite_schema AS t, pragma_table_info(t.name) AS c "
    "WHERE t.type = 'table' AND substr(t.name, 1, 1) <> '_' AND t.name NOT LIKE 'sqlite\\_%' "
    "ESCAPE '\\' ORDER BY t.rowid, c.cid"_s;
const QString ReadIndexNames = u"SELECT name FROM sqlite_schema WHERE type = 'index'"_s;
// The indexes over our functions, whose names all begin alike.
const QString ReadTextIndexNames = ReadIndexNames + u" AND sql LIKE '%corvane\\_%' ESCAPE '\\'"_s;
const QString CreateMeta =
    u"CREATE TABLE "_s + meta::Table + u" (name TEXT PRIMARY KEY, value TEXT) WITHOUT ROWID"_s;
const QString WriteMeta = u"INSERT OR REPLACE INTO "_s + meta::Table + u" VALUES (?, ?)"_s;
const QString ReadTextVersion =
    u"SELECT value FROM "_s + meta::Table + u" WHERE name = '"_s + meta::TextVersion + u'\'';

sql::Emitted metaRow(const QString& name, const QString& value)
{
    return {WriteMeta, {Value(name), Value(value)}};
}

QString createTable(const schema::Table& table, const sql::Dialect& dialect)
{
    QStringList columns;
    for (const schema::Column& column : table.columns())
        columns += dialect.columnDefinition(column, column.name == table.keyColumn());
    return u"CREATE TABLE "_s + dialect.name(table.name()) + u" ("_s + columns.join(u", "_s) + u')';
}

QString indexPart(const schema::IndexPart& part, const sql::Dialect& dialect)
{
    const QString column = dialect.name(part.column);
    switch (part.form) {
    case schema::IndexForm::Fold:
        return dialect.fold(column);
    case schema::IndexForm::Key:
        return dialect.key(column);
    case schema::IndexForm::Plain:
        break;
    }
    return column;
}

QString createIndex(const schema::Index& index, const sql::Dialect& dialect)
{
    QStringList parts;
    for (const schema::IndexPart& part : index.parts)
        parts += indexPart(part, dialect);
    return (index.unique ? u"CREATE UNIQUE INDEX "_s : u"CREATE INDEX "_s)
        + dialect.name(index.name) + u" ON "_s + dialect.name(index.table) + u" ("_s
        + parts.join(u", "_s) + u')';
}

sql::Emitted insertSeed(const schema::SeedRow& row, const sql::Dialect& dialect)
{
    QStringList names;
    QStringList marks;
    sql::Emitted insert;
    for (const auto& [column, value] : row.values) {
        names += dialect.name(column);
        marks += u"?"_s;
        insert.parameters += value;
    }
    insert.text = u"INSERT INTO "_s + dialect.name(row.table) + u" ("_s + names.join(u", "_s)
        + u") VALUES ("_s + marks.join(u", "_s) + u')';
    return insert;
}

bool isOverText(const schema::Index& index)
{
    return std::ranges::any_of(index.parts, [](const schema::IndexPart& part) {
        return part.form != schema::IndexForm::Plain;
    });
}

bool hasColumns(const schema::Catalog& catalog, const schema::Index& index)
{
    const schema::Table* table = catalog.find(index.table);
    return table && std::ranges::all_of(index.parts, [table](const schema::IndexPart& part) {
               return table->indexOf(part.column) >= 0;
           });
}

} // namespace

template <typename Steps> std::optional<Error> SqliteSession::inTransaction(Steps steps)
{
    if (auto error = begin(0))
        return error;
    std::optional<Error> error = steps();
    if (!error)
        error = commit(0);
    if (error)
        rollBack(0);
    return error;
}

std::optional<Error> SqliteSession::readTexts(const sql::Emitted& statement, QStringList* texts)
{
    Error error;
    const std::unique_ptr<Cursor> cursor = prepare(statement, &error);
    if (!cursor)
        return error;
    Cursor::Step step = cursor->step();
    for (; step == Cursor::Step::Row; step = cursor->step())
        texts->append(cursor->value(0, schema::ColumnType::Text).toText());
    if (step == Cursor::Step::Failed)
        return cursor->error();
    return {};
}

std::optional<Error> SqliteSession::readCatalog(schema::Catalog* catalog)
{
    Error error;
    const std::unique_ptr<Cursor> cursor = prepare({ReadColumns, {}}, &error);
    if (!cursor)
        return error;
    const auto text = [&cursor](int column) {
        return cursor->value(column, schema::ColumnType::Text).toText();
    };
    const auto flag = [&cursor](int column) {
        return cursor->value(column, schema::ColumnType::Long).toInteger() != 0;
    };

    QString table;
    QList<schema::Column> columns;
    QString keyColumn;
    bool distinct = true;
    const auto finishTable = [&] {
        if (!columns.isEmpty())
            distinct = catalog->add({table, columns, keyColumn}) && distinct;
        columns.clear();
        keyColumn.clear();
    };

    *catalog = {};
    Cursor::Step step = cursor->step();
    for (; step == Cursor::Step::Row; step = cursor->step()) {
        if (text(0) != table) {
            finishTable();
            table = text(0);
        }
        const bool isKey = flag(3);
        columns += columnFromDeclaration(text(1), text(2), isKey && flag(4));
        if (isKey)
            keyColumn = text(1);
    }
    if (step == Cursor::Step::Failed)
        return cursor->error();
    finishTable();
    if (!distinct)
        return makeError(ErrorKind::Name, u"見分けのつかない名前があります"_s);
    return {};
}

std::optional<Error> SqliteSession::create(const schema::Definition& definition)
{
    return inTransaction([&]() -> std::optional<Error> {
        QList<sql::Emitted> steps = {{CreateMeta, {}},
                                     metaRow(meta::Format, meta::CurrentFormat),
                                     metaRow(meta::TextVersion, meta::ownTextVersion())};
        for (const schema::Table& table : definition.tables)
            steps.append({createTable(table, m_dialect), {}});
        for (const schema::SeedRow& row : definition.rows)
            steps.append(insertSeed(row, m_dialect));
        for (const schema::Index& index : definition.indexes)
            steps.append({createIndex(index, m_dialect), {}});
        for (const sql::Emitted& step : std::as_const(steps)) {
            if (auto error = run(step, nullptr))
                return error;
        }
        return {};
    });
}

std::optional<Error> SqliteSession::completeIndexes(const schema::Definition& definition)
{
    schema::Catalog catalog;
    QStringList present;
    if (auto error = readCatalog(&catalog))
        return error;
    if (auto error = readTexts({ReadIndexNames, {}}, &present))
        return error;

    QList<schema::Index> missing;
    for (const schema::Index& index : definition.indexes) {
        if (!present.contains(index.name) && hasColumns(catalog, index))
            missing += index;
    }
    if (missing.isEmpty())
        return {};

    return inTransaction([&]() -> std::optional<Error> {
        // Read once more, now that no other copy can change them.
        present.clear();
        QStringList versions;
        if (auto error = readTexts({ReadIndexNames, {}}, &present))
            return error;
        if (auto error = readTexts({ReadTextVersion, {}}, &versions))
            return error;
        const bool own = versions.value(0) == meta::ownTextVersion();
        for (const schema::Index& index : std::as_const(missing)) {
            if (present.contains(index.name) || (isOverText(index) && !own))
                continue;
            if (auto error = runText(createIndex(index, m_dialect)))
                return error;
        }
        return {};
    });
}

std::optional<Error> SqliteSession::renewTextIndexes(bool onlyCopy)
{
    const QString version = onlyCopy ? meta::ownTextVersion() : meta::MixedVersions;
    const auto error = inTransaction([&]() -> std::optional<Error> {
        QStringList names;
        if (auto failure = readTexts({ReadTextIndexNames, {}}, &names))
            return failure;
        for (const QString& name : std::as_const(names)) {
            const QString quoted = m_dialect.name(name);
            if (auto failure = runText((onlyCopy ? u"REINDEX "_s : u"DROP INDEX "_s) + quoted))
                return failure;
        }
        return run(metaRow(meta::TextVersion, version), nullptr);
    });
    if (!error)
        m_foreignTextIndexes = !onlyCopy;
    return error;
}

} // namespace storage::engine::sqlite
