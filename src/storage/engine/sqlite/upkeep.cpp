#include "storage/engine/sqlite/upkeep.h"

#include "storage/engine/sqlite/meta.h"
#include "storage/engine/sqlite/session.h"
#include "storage/sql/emit.h"
#include "storage/sql/listed_texts.h"

#include <algorithm>

namespace storage::engine::sqlite {

using namespace Qt::StringLiterals;

namespace {

const QString ReadIndexNames = u"SELECT name FROM sqlite_schema WHERE type = 'index'"_s;
// The indexes over our functions, whose names all begin alike.
const QString ReadTextIndexNames = ReadIndexNames + u" AND sql LIKE '%corvane\\_%' ESCAPE '\\'"_s;
const QString ReadOwnIndexNames = ReadIndexNames + u" AND substr(name, 1, 1) = '_'"_s;
const QString CreateMeta =
    u"CREATE TABLE "_s + meta::Table + u" (name TEXT PRIMARY KEY, value TEXT) WITHOUT ROWID"_s;
const QString WriteMeta = u"INSERT OR REPLACE INTO "_s + meta::Table + u" VALUES (?, ?)"_s;
const QString ReadTextVersion =
    u"SELECT value FROM "_s + meta::Table + u" WHERE name = '"_s + meta::TextVersion + u'\'';
const QString CreateMarks = u"CREATE TABLE "_s + meta::Marks
    + u" (\"table\" TEXT, \"column\" TEXT, mark TEXT, "
      "PRIMARY KEY (\"table\", \"column\", mark)) WITHOUT ROWID"_s;
const QString WriteMark = u"INSERT OR IGNORE INTO "_s + meta::Marks + u" VALUES (?, ?, ?)"_s;

sql::Emitted metaRow(const QString& name, const QString& value)
{
    return {WriteMeta, {Value(name), Value(value)}};
}

sql::Emitted mark(const schema::Table& table, const schema::Column& column, const QString& mark)
{
    return {WriteMark, {Value(table.name()), Value(column.name), Value(mark)}};
}

QList<sql::Emitted> allMarks(const schema::Table& table)
{
    QList<sql::Emitted> marks;
    for (const schema::Column& column : table.columns()) {
        if (column.isDay)
            marks.append(mark(table, column, meta::DayMark));
        if (column.isListed)
            marks.append(mark(table, column, meta::ListedMark));
    }
    return marks;
}

sql::Emitted createTable(const schema::Table& table, const sql::Dialect& dialect)
{
    return sql::Emitter(dialect).change(sql::bound::CreateTable{table});
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

// What today's format has beyond the former one.
QList<sql::Emitted> tablesOfOurs(const sql::Dialect& dialect)
{
    return {{CreateMarks, {}},
            createTable(sql::listedTextsTable(), dialect),
            {createIndex(sql::listedTextsIndex(), dialect), {}}};
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

template <typename Steps> std::optional<Error> SqliteUpkeep::inTransaction(Steps steps)
{
    if (auto error = m_session.begin(0))
        return error;
    std::optional<Error> error = steps();
    if (!error)
        error = m_session.commit(0);
    if (error)
        m_session.rollBack(0);
    return error;
}

std::optional<Error> SqliteUpkeep::run(const QString& statement)
{
    return m_session.run({statement, {}}, nullptr);
}

std::optional<Error> SqliteUpkeep::runAll(const QList<sql::Emitted>& statements)
{
    for (const sql::Emitted& statement : statements) {
        if (auto error = m_session.run(statement, nullptr))
            return error;
    }
    return {};
}

std::optional<Error> SqliteUpkeep::create(const schema::Definition& definition)
{
    const sql::Dialect& dialect = m_session.dialect();
    QList<sql::Emitted> steps = {{CreateMeta, {}},
                                 metaRow(meta::Format, meta::CurrentFormat),
                                 metaRow(meta::TextVersion, meta::ownTextVersion())};
    steps += tablesOfOurs(dialect);
    for (const schema::Table& table : definition.tables) {
        steps.append(createTable(table, dialect));
        steps += allMarks(table);
    }
    for (const schema::SeedRow& row : definition.rows)
        steps.append(insertSeed(row, dialect));
    for (const schema::Index& index : definition.indexes)
        steps.append({createIndex(index, dialect), {}});
    return inTransaction([&] { return runAll(steps); });
}

std::optional<Error> SqliteUpkeep::findMissing(const schema::Definition& definition,
                                               Missing* missing)
{
    schema::Catalog catalog;
    QStringList present;
    if (auto error = m_session.readCatalog(&catalog))
        return error;
    if (auto error = m_session.readTexts(ReadIndexNames, &present))
        return error;
    for (const schema::Index& index : definition.indexes) {
        if (!present.contains(index.name) && hasColumns(catalog, index))
            missing->indexes += index;
    }
    for (const schema::Table& table : definition.tables) {
        const schema::Table* found = catalog.find(table.name());
        for (const schema::Column& column : table.columns()) {
            const int place = found ? found->indexOf(column.name) : -1;
            if (column.isDay && place >= 0 && !found->columns()[place].isDay)
                missing->marks.append(mark(table, column, meta::DayMark));
        }
    }
    return {};
}

// Those that another copy has not made meanwhile.
std::optional<Error> SqliteUpkeep::makeIndexes(const QList<schema::Index>& indexes)
{
    QStringList present;
    QStringList versions;
    if (auto error = m_session.readTexts(ReadIndexNames, &present))
        return error;
    if (auto error = m_session.readTexts(ReadTextVersion, &versions))
        return error;
    const bool own = versions.value(0) == meta::ownTextVersion();
    for (const schema::Index& index : indexes) {
        if (present.contains(index.name) || (isOverText(index) && !own))
            continue;
        if (auto error = run(createIndex(index, m_session.dialect())))
            return error;
    }
    return {};
}

std::optional<Error> SqliteUpkeep::completeIndexes(const schema::Definition& definition)
{
    Missing missing;
    if (auto error = findMissing(definition, &missing))
        return error;
    if (missing.indexes.isEmpty() && missing.marks.isEmpty())
        return {};
    return inTransaction([&] {
        auto error = runAll(missing.marks);
        return error ? error : makeIndexes(missing.indexes);
    });
}

std::optional<Error> SqliteUpkeep::dropIndexesBut(const QList<schema::Index>& kept)
{
    QStringList names;
    if (auto error = m_session.readTexts(ReadOwnIndexNames, &names))
        return error;
    for (const schema::Index& index : kept)
        names.removeAll(index.name);
    for (const QString& name : std::as_const(names)) {
        if (auto error = run(u"DROP INDEX "_s + m_session.dialect().name(name)))
            return error;
    }
    return {};
}

// The indexes that go make room for those that come.
std::optional<Error> SqliteUpkeep::convert(const schema::Definition& definition)
{
    const sql::Dialect& dialect = m_session.dialect();
    auto error = inTransaction([&]() -> std::optional<Error> {
        if (auto failure = dropIndexesBut(definition.indexes))
            return failure;
        if (auto failure = runAll(tablesOfOurs(dialect)))
            return failure;
        for (const schema::Table& table : definition.tables) {
            if (auto failure = runAll(allMarks(table)))
                return failure;
        }
        if (auto failure = fillLists())
            return failure;
        Missing missing;
        if (auto failure = findMissing(definition, &missing))
            return failure;
        if (auto failure = makeIndexes(missing.indexes))
            return failure;
        return m_session.run(metaRow(meta::Format, meta::CurrentFormat), nullptr);
    });
    if (!error)
        m_state.formerFormat = false;
    return error;
}

std::optional<Error> SqliteUpkeep::fillLists()
{
    schema::Catalog catalog;
    if (auto error = m_session.readCatalog(&catalog))
        return error;
    QList<sql::Emitted> steps;
    for (const schema::Table& table : catalog.tables()) {
        for (const schema::Column& column : table.columns()) {
            if (column.isListed)
                steps.append(sql::listAllTexts(table.name(), column.name, m_session.dialect()));
        }
    }
    return runAll(steps);
}

std::optional<Error> SqliteUpkeep::renewTextIndexes(bool onlyCopy)
{
    const QString version = onlyCopy ? meta::ownTextVersion() : meta::MixedVersions;
    const auto error = inTransaction([&]() -> std::optional<Error> {
        QStringList names;
        if (auto failure = m_session.readTexts(ReadTextIndexNames, &names))
            return failure;
        for (const QString& name : std::as_const(names)) {
            const QString quoted = m_session.dialect().name(name);
            if (auto failure = run((onlyCopy ? u"REINDEX "_s : u"DROP INDEX "_s) + quoted))
                return failure;
        }
        return m_session.run(metaRow(meta::TextVersion, version), nullptr);
    });
    if (!error)
        m_state.foreignTextIndexes = !onlyCopy;
    return error;
}

} // namespace storage::engine::sqlite
