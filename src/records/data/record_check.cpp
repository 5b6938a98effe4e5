#include "records/data/record_check.h"

#include "core/data/failure.h"
#include "core/data/messages.h"
#include "storage/recordset.h"

using namespace Qt::StringLiterals;

namespace records {

RecordState stateOf(const storage::Recordset& row, const QString& stampShown)
{
    if (row.eof())
        return RecordState::Gone;
    return row.text(u"更新日時") == stampShown ? RecordState::Unchanged : RecordState::Changed;
}

CheckResult askAbout(core::Messages& messages, RecordState state, core::DefaultButton button)
{
    if (state == RecordState::Gone) {
        core::tellRowGone(messages);
        return CheckResult::Gone;
    }
    if (state == RecordState::Unchanged
        || messages.confirm(
            u"すでにデータが更新されている可能性があります、このまま更新しますか？"_s, button))
        return CheckResult::GoOn;
    messages.tell(u"リスト表示を更新して下さい"_s);
    return CheckResult::Declined;
}

void tellParentGone(core::Messages& messages)
{
    // The second sentence stands in the title bar.
    messages.show(core::MessageStyle::Critical, u"追加しようしているデータ元がみつかりません。"_s,
                  u"すでに削除された可能性があります。再表示後にデータを確認して下さい。"_s);
}

void tellNothingRead(Database& data, qsizetype failuresBefore)
{
    if (data.connection.errors().size() > failuresBefore)
        core::tellFailure(data.messages, core::ReadFailedText, data.connection);
    else
        core::tellRowGone(data.messages);
}

} // namespace records
