#include "records/data/related_files.h"

#include "core/data/failure.h"
#include "records/data/record_check.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace records {

QString shortcutName(const QString& path)
{
    return path.mid(std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/')) + 1);
}

SaveResult addShortcut(Database& data, const RelatedFiles& kind, const core::RecordKey& owner,
                       const QString& path)
{
    return addRecord(data, kind.table, {owner},
                     {{u"ﾌｧｲﾙ名"_s, shortcutName(path)}, {u"場所"_s, path}});
}

// The name in the question is read again: the list may be older than the row.
DeleteResult deleteShortcut(Database& data, const RelatedFiles& kind, const core::RecordKey& key)
{
    const qsizetype failures = data.connection.errors().size();
    const std::optional<Record> row = readOrTell(data, kind.table, key);
    if (!row) {
        return data.connection.errors().size() > failures ? DeleteResult::Failed
                                                          : DeleteResult::Gone;
    }
    return removeRecord(data, kind.table, key, row->text(u"ﾌｧｲﾙ名") + kind.question);
}

std::optional<QString> shortcutPath(Database& data, const RelatedFiles& kind,
                                    const core::RecordKey& key)
{
    const std::optional<Record> row = readRecord(data, kind.table, key);
    return row ? std::optional(row->text(u"場所")) : std::nullopt;
}

std::unique_ptr<RecordList> openShortcuts(Database& data, const RelatedFiles& kind,
                                          const core::RecordKey& owner)
{
    return openWholeList(data, kind.list, {kind.condition.with(owner), {}, {}}, {});
}

} // namespace records
