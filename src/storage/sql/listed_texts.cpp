#include "storage/sql/listed_texts.h"

#include "storage/sql/dialect.h"

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

const QString kTableColumn = u"table"_s;
const QString kColumnColumn = u"column"_s;
const QString kTextColumn = u"text"_s;

QString listTable(const Dialect& dialect)
{
    return dialect.name(listedTextsTable().name());
}

QString insertIntoList(const Dialect& dialect)
{
    return u"INSERT INTO "_s + listTable(dialect) + u" ("_s + dialect.name(kTableColumn) + u", "_s
        + dialect.name(kColumnColumn) + u", "_s + dialect.name(kTextColumn) + u") "_s;
}

// The rows of an expression, without Null and the empty text.
QString texts(const QString& expression, const QString& from)
{
    return u"SELECT DISTINCT "_s + expression + u" FROM "_s + from + u" WHERE "_s + expression
        + u" <> ''"_s;
}

// Texts that fold alike have one key.
QString order(const QString& text, const Dialect& dialect)
{
    return u" ORDER BY "_s + dialect.key(text) + u", "_s + text;
}

} // namespace

const schema::Table& listedTextsTable()
{
    static const schema::Table table(u"_texts"_s, {{kTableColumn}, {kColumnColumn}, {kTextColumn}},
                                     {});
    return table;
}

const schema::Index& listedTextsIndex()
{
    static const schema::Index index{u"_texts_table_column_text"_s,
                                     listedTextsTable().name(),
                                     {{kTableColumn}, {kColumnColumn}, {kTextColumn}},
                                     true};
    return index;
}

QStringList listedColumns(const bound::Insert& insert)
{
    QStringList names;
    for (const int index : insert.columns) {
        const schema::Column& column = insert.table->columns()[index];
        if (column.isListed)
            names.append(column.name);
    }
    return names;
}

QStringList listedColumns(const bound::Update& update)
{
    QStringList names;
    for (const bound::Assignment& each : update.assignments) {
        const schema::Column& column = update.source.table->columns()[each.column];
        if (column.isListed)
            names.append(column.name);
    }
    return names;
}

Emitted listText(const QString& table, const QString& column, const QString& text,
                 const Dialect& dialect)
{
    return {insertIntoList(dialect) + u"VALUES ("_s + dialect.parameter(1) + u", "_s
                + dialect.parameter(2) + u", "_s + dialect.parameter(3)
                + u") ON CONFLICT DO NOTHING"_s,
            {Value(table), Value(column), Value(text)}};
}

Emitted listAllTexts(const QString& table, const QString& column, const Dialect& dialect)
{
    const QString text = dialect.name(column);
    return {insertIntoList(dialect) + u"SELECT "_s + dialect.parameter(1) + u", "_s
                + dialect.parameter(2) + u", "_s + text + u" FROM ("_s
                + texts(text, dialect.name(table)) + u") AS _rows"_s,
            {Value(table), Value(column)}};
}

Emitted listedTexts(const QString& table, const QString& column, const Dialect& dialect)
{
    const QString text = dialect.name(kTextColumn);
    return {u"SELECT "_s + text + u" FROM "_s + listTable(dialect) + u" WHERE "_s
                + dialect.name(kTableColumn) + u" = "_s + dialect.parameter(1) + u" AND "_s
                + dialect.name(kColumnColumn) + u" = "_s + dialect.parameter(2)
                + order(text, dialect),
            {Value(table), Value(column)}};
}

Emitted distinctTexts(const QString& table, const QString& column, const Dialect& dialect)
{
    const QString text = dialect.name(column);
    return {u"SELECT "_s + text + u" FROM ("_s + texts(text, dialect.name(table)) + u") AS _rows"_s
                + order(text, dialect),
            {}};
}

} // namespace storage::sql
