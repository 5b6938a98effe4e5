#include "core/data/numbering.h"

#include "core/data/clock.h"
#include "storage/recordset.h"
#include "storage/transaction.h"

using namespace Qt::StringLiterals;

namespace core {

namespace {

const QString CounterQuery = u"Select * From 最新発番 Where 発番ID = 1"_s;

bool appendRow(DataFile& file, const QString& table, const FieldValues& fields)
{
    storage::Transaction transaction(file.connection);
    storage::Recordset rows;
    if (!transaction.isActive()
        || !rows.open(table, file.connection, storage::CursorType::Dynamic,
                      storage::LockType::Optimistic)
        || !rows.addNew()) {
        return false;
    }
    for (const auto& [column, value] : fields) {
        if (!rows.setValue(column, value))
            return false;
    }
    return rows.setValue(u"更新日時", storage::Value(file.clock.now())) && rows.update()
        && transaction.commit();
}

bool stamp(DataFile& file, const QString& query, const QString& column, qint64 number)
{
    storage::Transaction transaction(file.connection);
    return transaction.isActive() && writeRow(file, query, {{column, storage::Value(number)}})
        && transaction.commit();
}

} // namespace

std::optional<qint64> appendNumbered(DataFile& file, const IdKind& kind, const FieldValues& fields)
{
    storage::Transaction transaction(file.connection);
    if (!transaction.isActive() || !appendRow(file, kind.table, fields))
        return std::nullopt;
    const std::optional<qint64> number = readNumber(file, kind.maxQuery, u"ma1"_s);
    if (!number || !stamp(file, CounterQuery, kind.counterColumn, *number)
        || !stamp(file, kind.rowQuery + QString::number(*number), kind.idColumn, *number)
        || !transaction.commit()) {
        return std::nullopt;
    }
    return number;
}

} // namespace core
