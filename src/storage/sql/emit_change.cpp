#include "storage/sql/emit.h"

#include "storage/sql/listed_texts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

// Two writes of a row are told apart by it, so a new one must be later than the one it replaces.
const QString kStamp = u"更新日時"_s;

// What a row that has no key is called in a message, before its number.
const QString kSelectedRow = u"行"_s;

QString assignment(const QString& column, const QString& value, const Dialect& dialect)
{
    const QString name = dialect.name(column);
    return name + u" = "_s + (column == kStamp ? dialect.nextStamp(name, value) : value);
}

QString insertInto(const QString& table, const QStringList& columns, const Dialect& dialect)
{
    return u"INSERT INTO "_s + dialect.name(table) + u" ("_s + columns.join(u", "_s) + u") "_s;
}

// Collects parameters and says how each is written.
class Parameters {
public:
    explicit Parameters(const Dialect& dialect) : m_dialect(dialect) {}

    QString add(const Value& value)
    {
        m_values.append(value);
        return m_dialect.parameter(m_values.size());
    }
    Emitted finish(QString text) { return Emitted{std::move(text), std::move(m_values)}; }

private:
    const Dialect& m_dialect;
    QList<Parameter> m_values;
};

// The row at an address, provided that nobody has written it since it was read.
QString whereRow(const schema::Table& table, const Value& address,
                 const std::optional<Value>& readStamp, Parameters* parameters,
                 const Dialect& dialect)
{
    QString text =
        u" WHERE "_s + dialect.rowAddress(table, QString()) + u" = "_s + parameters->add(address);
    if (readStamp)
        text += u" AND "_s + dialect.name(kStamp)
            + (readStamp->isNull() ? u" IS NULL"_s : u" = "_s + parameters->add(*readStamp));
    return text;
}

// What gives back the row that was written.
QString writtenRow(const RowWrite& row, const schema::Table& table, const Dialect& dialect)
{
    QStringList columns;
    for (const QString& column : row.returned)
        columns.append(dialect.name(column));
    return dialect.returning(columns << dialect.rowAddress(table, QString()));
}

} // namespace

QString Emitter::returning(const QStringList& columns) const
{
    QStringList names;
    for (const QString& column : columns)
        names.append(m_dialect.name(column));
    return names.isEmpty() ? QString() : m_dialect.returning(names);
}

Emitted Emitter::change(const bound::Insert& insert)
{
    QStringList columns;
    for (const int index : insert.columns)
        columns.append(m_dialect.name(insert.table->columns()[index].name));
    const QString head = insertInto(insert.table->name(), columns, m_dialect);
    if (const auto* source = std::get_if<bound::Select>(&insert.source))
        return finished(head + fittedRows(insert, *source) + returning(listedColumns(insert)));
    const auto& written = std::get<std::vector<bound::ExpressionPtr>>(insert.source);
    return finished(head + u"VALUES ("_s + values(written).join(u", "_s) + u')'
                    + returning(listedColumns(insert)));
}

// The SELECT's rows with their values brought to the columns' types, where they are not already.
QString Emitter::fittedRows(const bound::Insert& insert, const bound::Select& source)
{
    if (std::ranges::find(insert.fitted, true) == insert.fitted.end())
        return select(source, false);
    QStringList values;
    for (size_t i = 0; i < insert.columns.size(); ++i) {
        const QString value = m_dialect.name(numberedColumn(i));
        const schema::Column& column = insert.table->columns()[insert.columns[i]];
        values.append(insert.fitted[i]
                          ? m_dialect.fitted(value, column, kSelectedRow, u"row_number() OVER ()"_s)
                          : value);
    }
    return u"SELECT "_s + values.join(u", "_s) + u" FROM ("_s + select(source, false, true)
        + u") AS _rows"_s;
}

Emitted Emitter::change(const bound::Update& update)
{
    const Columns sources{update.source};
    m_sources = &sources;
    const schema::Table& table = *update.source.table;
    m_rowLabel = table.keyColumn().isEmpty() ? kSelectedRow : table.keyColumn();
    m_row = m_dialect.rowAddress(table, QString());
    QStringList assignments;
    for (const bound::Assignment& each : update.assignments) {
        const QString column = update.source.table->columns()[each.column].name;
        assignments.append(assignment(column, value(*each.value), m_dialect));
    }
    QString text = u"UPDATE "_s + m_dialect.name(update.source.table->name()) + u" SET "_s
        + assignments.join(u", "_s);
    if (update.where)
        text += u" WHERE "_s + value(*update.where);
    return finished(text + returning(listedColumns(update)));
}

Emitted Emitter::change(const bound::Delete& deletion)
{
    const Columns sources{deletion.source};
    m_sources = &sources;
    QString text = u"DELETE FROM "_s + m_dialect.name(deletion.source.table->name());
    if (deletion.where)
        text += u" WHERE "_s + value(*deletion.where);
    return finished(std::move(text));
}

Emitted Emitter::change(const bound::CreateTable& creation)
{
    const schema::Table& table = creation.table;
    QStringList columns;
    for (const schema::Column& column : table.columns())
        columns += m_dialect.columnDefinition(column, column.name == table.keyColumn());
    return finished(m_dialect.createTable(table) + u" ("_s + columns.join(u", "_s) + u')');
}

Emitted Emitter::change(const bound::AddColumn& addition)
{
    return finished(u"ALTER TABLE "_s + m_dialect.name(addition.table->name()) + u" ADD COLUMN "_s
                    + m_dialect.columnDefinition(addition.column, false));
}

Emitted Emitter::change(const bound::DropTable& drop)
{
    return finished(u"DROP TABLE "_s + m_dialect.name(drop.table->name()));
}

Emitted insertRow(const RowWrite& row, const schema::Table& table, const Dialect& dialect)
{
    const QString back = writtenRow(row, table, dialect);
    if (row.values.isEmpty())
        return {u"INSERT INTO "_s + dialect.name(table.name()) + u" DEFAULT VALUES"_s + back, {}};
    Parameters parameters(dialect);
    QStringList columns;
    QStringList values;
    for (const auto& [column, value] : row.values) {
        columns.append(dialect.name(column));
        values.append(parameters.add(value));
    }
    return parameters.finish(insertInto(table.name(), columns, dialect) + u"VALUES ("_s
                             + values.join(u", "_s) + u')' + back);
}

Emitted updateRow(const RowWrite& row, const schema::Table& table, const Value& address,
                  const std::optional<Value>& readStamp, const Dialect& dialect)
{
    Parameters parameters(dialect);
    QStringList assignments;
    for (const auto& [column, value] : row.values)
        assignments.append(assignment(column, parameters.add(value), dialect));
    const QString where = whereRow(table, address, readStamp, &parameters, dialect);
    return parameters.finish(u"UPDATE "_s + dialect.name(table.name()) + u" SET "_s
                             + assignments.join(u", "_s) + where + writtenRow(row, table, dialect));
}

Emitted deleteRow(const schema::Table& table, const Value& address,
                  const std::optional<Value>& readStamp, const Dialect& dialect)
{
    Parameters parameters(dialect);
    const QString where = whereRow(table, address, readStamp, &parameters, dialect);
    return parameters.finish(u"DELETE FROM "_s + dialect.name(table.name()) + where);
}

} // namespace storage::sql
