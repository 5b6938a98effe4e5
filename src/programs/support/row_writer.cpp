#include "programs/support/row_writer.h"

#include "storage/engine/engine.h"
#include "storage/schema/catalog.h"

namespace programs {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype ParametersPerStatement = 900;

} // namespace

RowWriter::RowWriter(storage::Connection& connection, const QString& table,
                     const QStringList& columns)
    : m_connection(connection),
      m_table(table),
      m_columnCount(columns.size()),
      m_batch(std::max<qsizetype>(1, ParametersPerStatement / columns.size()))
{
    const storage::sql::Dialect& dialect = connection.session()->dialect();
    const storage::schema::Table* known = connection.catalog().find(table);
    QStringList names;
    for (const QString& column : columns) {
        const int place = known ? known->indexOf(column) : -1;
        if (place >= 0 && known->columns()[place].isListed)
            m_listed.append({names.size(), column});
        names += dialect.name(column);
    }
    m_head =
        u"INSERT INTO "_s + dialect.name(table) + u" ("_s + names.join(u", "_s) + u") VALUES "_s;
    m_row = u'(' + QStringList(columns.size(), u"?"_s).join(u", "_s) + u')';
}

void RowWriter::add(const QList<storage::Value>& row)
{
    Q_ASSERT(row.size() == m_columnCount);
    m_values += row;
    for (const auto& [place, column] : std::as_const(m_listed)) {
        if (!m_error && !m_connection.listTexts(m_table, {{column, row[place]}}))
            m_error = m_connection.lastError();
    }
    if (m_values.size() == m_batch * m_columnCount)
        write(m_batch);
}

std::optional<storage::Error> RowWriter::finish()
{
    if (!m_values.isEmpty())
        write(m_values.size() / m_columnCount);
    return m_error;
}

void RowWriter::write(qsizetype rows)
{
    if (!m_error) {
        storage::sql::Emitted statement{m_head + QStringList(rows, m_row).join(u", "_s), {}};
        statement.parameters.reserve(m_values.size());
        for (const storage::Value& value : std::as_const(m_values))
            statement.parameters.append(value);
        m_error = m_connection.session()->run(statement, nullptr);
    }
    m_values.clear();
}

} // namespace programs
