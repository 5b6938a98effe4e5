#include "programs/support/row_writer.h"

#include "storage/engine/engine.h"

namespace programs {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype ParametersPerStatement = 900;

} // namespace

RowWriter::RowWriter(storage::Connection& connection, const QString& table,
                     const QStringList& columns)
    : m_connection(connection),
      m_columnCount(columns.size()),
      m_batch(std::max<qsizetype>(1, ParametersPerStatement / columns.size()))
{
    const storage::sql::Dialect& dialect = connection.session()->dialect();
    QStringList names;
    for (const QString& column : columns)
        names += dialect.name(column);
    m_head =
        u"INSERT INTO "_s + dialect.name(table) + u" ("_s + names.join(u", "_s) + u") VALUES "_s;
    m_row = u'(' + QStringList(columns.size(), u"?"_s).join(u", "_s) + u')';
}

void RowWriter::add(const QList<storage::Value>& row)
{
    Q_ASSERT(row.size() == m_columnCount);
    m_values += row;
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
