#include "records/data/numbering.h"

#include "core/data/clock.h"
#include "records/data/row_changes.h"
#include "storage/recordset.h"
#include "storage/transaction.h"

using namespace Qt::StringLiterals;

namespace records {

namespace {

const QString CounterQuery = u"Select * From 最新発番 Where 発番ID = 1"_s;

bool appendRow(Database& data, const QString& table, const FieldValues& fields)
{
    storage::Transaction transaction(data.connection);
    storage::Recordset rows;
    return transaction.isActive()
        && rows.open(table, data.connection, storage::CursorType::Dynamic,
                     storage::LockType::Optimistic)
        && rows.addNew() && putFields(data, rows, fields) && rows.update() && transaction.commit();
}

bool stamp(Database& data, const QString& query, const QString& column, qint64 number,
           const RowReceiver& written)
{
    storage::Transaction transaction(data.connection);
    return transaction.isActive()
        && writeRow(data, query, {{column, storage::Value(number)}}, written)
        && transaction.commit();
}

} // namespace

std::optional<qint64> appendNumbered(Database& data, const QString& table,
                                     const Numbering& numbering, const QString& idColumn,
                                     const FieldValues& fields, const RowReceiver& written)
{
    storage::Transaction transaction(data.connection);
    if (!transaction.isActive() || !appendRow(data, table, fields))
        return std::nullopt;
    const std::optional<qint64> number = readNumber(data, numbering.maxQuery, u"ma1"_s);
    const bool counts = !numbering.counterColumn.isEmpty();
    if (!number || (counts && !stamp(data, CounterQuery, numbering.counterColumn, *number, {}))
        || !stamp(data, numbering.rowQuery + QString::number(*number), idColumn, *number, written)
        || !transaction.commit()) {
        return std::nullopt;
    }
    return number;
}

} // namespace records
