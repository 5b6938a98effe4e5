#pragma once

#include "storage/base/value.h"
#include "storage/connection.h"

#include <QStringList>

#include <optional>

namespace programs {

// Appends many rows to one table, a batch with every statement: several times faster than record by
// record. The caller begins and commits the transaction.
class RowWriter {
public:
    // Columns by canonical name.
    RowWriter(storage::Connection& connection, const QString& table, const QStringList& columns);

    // Takes one row, its values in the order of the columns.
    void add(const QList<storage::Value>& row);
    // Writes what is left. The first failure since the beginning; no row is written after one.
    std::optional<storage::Error> finish();

private:
    void write(qsizetype rows);

    storage::Connection& m_connection;
    QString m_table;
    QList<std::pair<qsizetype, QString>> m_listed; // columns whose texts the file lists, by place
    QString m_head;                                // up to VALUES
    QString m_row;                                 // (?, ?, …)
    qsizetype m_columnCount;
    qsizetype m_batch; // rows with one statement
    QList<storage::Value> m_values;
    std::optional<storage::Error> m_error;
};

} // namespace programs
