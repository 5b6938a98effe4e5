#include "core/data/record_check.h"

#include "core/data/failure.h"
#include "core/data/messages.h"
#include "storage/connection.h"
#include "storage/recordset.h"

using namespace Qt::StringLiterals;

namespace core {

void tellRowGone(Messages& messages)
{
    messages.warn(u"データが削除されている為、更新できません。\r\nリスト表示を更新して下さい。"_s);
}

void tellNothingRead(DataFile& file, qsizetype failuresBefore)
{
    if (file.connection.errors().size() > failuresBefore)
        tellFailure(file.messages, ReadFailedText, file.connection);
    else
        tellRowGone(file.messages);
}

CheckResult CheckRecord(storage::Connection& connection, Messages& messages, const QString& query,
                        const QString& stampShown)
{
    storage::Recordset row;
    if (!row.open(query, connection)) {
        tellFailure(messages, ReadFailedText, connection);
        return CheckResult::Failed;
    }
    if (row.eof()) {
        tellRowGone(messages);
        return CheckResult::Gone;
    }
    const QString stamp = row.text(u"更新日時");
    row.close(); // no read may stay open while the user thinks
    if (stamp == stampShown)
        return CheckResult::GoOn;
    if (messages.confirm(u"すでにデータが更新されている可能性があります、このまま更新しますか？"_s))
        return CheckResult::GoOn;
    messages.tell(u"リスト表示を更新して下さい"_s);
    return CheckResult::Declined;
}

bool CheckParent(storage::Connection& connection, Messages& messages, const QString& query)
{
    storage::Recordset parent;
    if (!parent.open(query, connection))
        return tellFailure(messages, ReadFailedText, connection);
    const bool found = !parent.eof();
    parent.close();
    if (!found) {
        // The second sentence stands in the title bar.
        messages.show(MessageStyle::Critical, u"追加しようしているデータ元がみつかりません。"_s,
                      u"すでに削除された可能性があります。再表示後にデータを確認して下さい。"_s);
    }
    return found;
}

} // namespace core
