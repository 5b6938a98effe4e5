#include "storage/engine/sqlite/error.h"
#include "storage/engine/sqlite/meta.h"
#include "storage/engine/sqlite/session.h"

#include <QSet>

namespace storage::engine::sqlite {

using namespace Qt::StringLiterals;

namespace {

const QString ReadColumns =
    u"SELECT t.name, c.name, c.type, c.pk, "
    "t.sql LIKE '%PRIMARY KEY AUTOINCREMENT%' "
    "FROM sqlite_schema AS t, pragma_table_info(t.name) AS c "
    "WHERE t.type = 'table' AND substr(t.name, 1, 1) <> '_' AND t.name NOT LIKE 'sqlite\\_%' "
    "ESCAPE '\\' ORDER BY t.rowid, c.cid"_s;
const QString FindMarks = u"SELECT name FROM sqlite_schema WHERE name = '"_s + meta::Marks + u'\'';
const QString ReadMarks = u"SELECT * FROM "_s + meta::Marks;

QString textAt(const Cursor& cursor, int column)
{
    return cursor.value(column, schema::ColumnType::Text).toText();
}

bool flagAt(const Cursor& cursor, int column)
{
    return cursor.value(column, schema::ColumnType::Long).toInteger() != 0;
}

// Gathers tables from their columns, one after another.
class CatalogBuilder {
public:
    CatalogBuilder(schema::Catalog* catalog, const QSet<QStringList>& marks)
        : m_catalog(catalog), m_marks(marks)
    {
    }

    void add(const Cursor& row)
    {
        if (textAt(row, 0) != m_table) {
            finishTable();
            m_table = textAt(row, 0);
        }
        const bool isKey = flagAt(row, 3);
        schema::Column column =
            columnFromDeclaration(textAt(row, 1), textAt(row, 2), isKey && flagAt(row, 4));
        column.isDay = m_marks.contains({m_table, column.name, meta::DayMark});
        column.isListed = m_marks.contains({m_table, column.name, meta::ListedMark});
        if (isKey)
            m_keyColumn = column.name;
        m_columns.append(std::move(column));
    }

    // False when two names cannot be told apart.
    bool finish()
    {
        finishTable();
        return m_distinct;
    }

private:
    void finishTable()
    {
        if (!m_columns.isEmpty())
            m_distinct = m_catalog->add({m_table, m_columns, m_keyColumn}) && m_distinct;
        m_columns.clear();
        m_keyColumn.clear();
    }

    schema::Catalog* m_catalog;
    const QSet<QStringList>& m_marks;
    QString m_table;
    QList<schema::Column> m_columns;
    QString m_keyColumn;
    bool m_distinct = true;
};

} // namespace

std::optional<Error> SqliteSession::readRows(const sql::Emitted& statement,
                                             const std::function<void(const Cursor&)>& take)
{
    Error error;
    const std::unique_ptr<Cursor> cursor = prepare(statement, &error);
    if (!cursor)
        return error;
    Cursor::Step step = cursor->step();
    for (; step == Cursor::Step::Row; step = cursor->step())
        take(*cursor);
    if (step == Cursor::Step::Failed)
        return cursor->error();
    return {};
}

std::optional<Error> SqliteSession::readTexts(const QString& statement, QStringList* texts)
{
    return readRows({statement, {}}, [texts](const Cursor& row) { texts->append(textAt(row, 0)); });
}

std::optional<Error> SqliteSession::readCatalog(schema::Catalog* catalog)
{
    // A file of the former format has no marks.
    QStringList markTables;
    QSet<QStringList> marks;
    if (auto error = readTexts(FindMarks, &markTables))
        return error;
    const auto takeMark = [&marks](const Cursor& row) {
        marks.insert({textAt(row, 0), textAt(row, 1), textAt(row, 2)});
    };
    if (auto error = markTables.isEmpty() ? std::nullopt : readRows({ReadMarks, {}}, takeMark))
        return error;

    *catalog = {};
    CatalogBuilder builder(catalog, marks);
    if (auto error = readRows({ReadColumns, {}}, [&](const Cursor& row) { builder.add(row); }))
        return error;
    if (!builder.finish())
        return makeError(ErrorKind::Name, u"見分けのつかない名前があります"_s);
    return {};
}

} // namespace storage::engine::sqlite
