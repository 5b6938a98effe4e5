#include "records/data/row_changes.h"

#include "core/data/clock.h"
#include "storage/recordset.h"
#include "storage/transaction.h"

using namespace Qt::StringLiterals;

namespace records {

namespace {

bool writeCurrent(Database& data, storage::Recordset& row, const FieldValues& fields)
{
    return putFields(data, row, fields) && row.update();
}

bool openForChange(Database& data, const QString& query, storage::Recordset& row)
{
    return row.open(query, data.connection, storage::CursorType::Dynamic,
                    storage::LockType::Optimistic);
}

} // namespace

bool runSteps(Database& data, const ChangeSteps& steps)
{
    storage::Transaction transaction(data.connection);
    return transaction.isActive() && steps() && transaction.commit();
}

std::optional<bool> rowStands(Database& data, const QString& query)
{
    storage::Recordset row;
    if (!row.open(query, data.connection))
        return std::nullopt;
    return !row.eof();
}

bool putFields(Database& data, storage::Recordset& row, const FieldValues& fields)
{
    for (const auto& [column, value] : fields) {
        if (!row.setValue(column, value))
            return false;
    }
    return row.setValue(u"更新日時", storage::Value(data.clock.now()));
}

bool writeRow(Database& data, const QString& query, const FieldValues& fields,
              const RowReceiver& written)
{
    storage::Recordset row;
    if (!openForChange(data, query, row))
        return false;
    if (row.eof()) {
        return data.connection.fail(
            {storage::ErrorKind::Gone, u"データが見つかりません。"_s, -1, query});
    }
    if (!writeCurrent(data, row, fields))
        return false;
    if (written)
        written(row);
    return true;
}

bool touchRow(Database& data, const QString& query)
{
    storage::Recordset row;
    if (!openForChange(data, query, row))
        return false;
    return row.eof()
        || writeCurrent(data, row, {{u"最近更新日時"_s, storage::Value(data.clock.now())}});
}

std::optional<qint64> readNumber(Database& data, const QString& query, const QString& field)
{
    storage::Recordset row;
    if (!row.open(query, data.connection))
        return std::nullopt;
    return row.eof() ? 0 : row.value(field).toInteger();
}

} // namespace records
