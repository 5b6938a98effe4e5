#include "records/data/keyed_text.h"

#include "storage/transaction.h"

#include <algorithm>

namespace records {

QString KeyedText::with(const core::RecordKey& key) const
{
    if (number == None)
        return text;
    const QString found = text + QString::number(number == Id ? key.id : key.updateId);
    return markClause.isEmpty() ? found : found + markClause + QString::number(key.mark);
}

bool runCascade(Database& data, const Cascade& cascade, const core::RecordKey& key)
{
    storage::Transaction transaction(data.connection);
    return transaction.isActive()
        && std::ranges::all_of(
               cascade,
               [&](const KeyedText& step) { return data.connection.execute(step.with(key)); })
        && transaction.commit();
}

} // namespace records
