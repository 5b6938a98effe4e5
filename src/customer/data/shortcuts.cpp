#include "customer/data/shortcuts.h"

#include "core/data/failure.h"
#include "core/data/messages.h"
#include "core/data/record_check.h"
#include "customer/data/cascades.h"
#include "customer/data/id_issuer.h"
#include "storage/recordset.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace customer {

namespace {

// What differs between the shortcuts of customers and those of cases.
struct ShortcutTable {
    Kind kind;
    Cascade cascade;
    QString parentQuery;
    QString parentMark;
    QString listQuery;
    QString listMark;
    QString rowQuery;
    QString rowMark;
    QString updateIdColumn;
    QString markColumn;
    QString idColumn;
    QString ownerColumn;
    QString question; // after the name
};

const ShortcutTable& tableOf(ShortcutOwner kind)
{
    static const ShortcutTable customers{
        Kind::CustomerShortcut,
        Cascade::CustomerShortcut,
        u"SELECT * From ユーザー WHERE ﾕｰｻﾞｰID = "_s,
        u" AND ﾕｰｻﾞｰ識別ID = "_s,
        u"SELECT * From ユーザー関連ファイル WHERE ﾕｰｻﾞｰID ="_s,
        u" and ﾕｰｻﾞｰ関連識別ID="_s,
        u"Select * From ユーザー関連ファイル Where ﾕｰｻﾞｰ関連ID ="_s,
        u" AND ﾕｰｻﾞｰ関連識別ID ="_s,
        u"ﾕｰｻﾞｰ関連更新ID"_s,
        u"ﾕｰｻﾞｰ関連識別ID"_s,
        u"ﾕｰｻﾞｰ関連ID"_s,
        u"ﾕｰｻﾞｰID"_s,
        u" ショートカットを削除しますか？"_s};
    static const ShortcutTable cases{Kind::CaseShortcut,
                                     Cascade::CaseShortcut,
                                     u"SELECT * From 件名 WHERE 件名ID = "_s,
                                     u" AND 件名識別ID = "_s,
                                     u"SELECT * From 件名関連ファイル WHERE 件名ID ="_s,
                                     u" and 件名関連識別ID="_s,
                                     u"Select * From 件名関連ファイル Where 件名関連ID ="_s,
                                     u" AND 件名関連識別ID ="_s,
                                     u"件名関連更新ID"_s,
                                     u"件名関連識別ID"_s,
                                     u"件名関連ID"_s,
                                     u"件名ID"_s,
                                     u" を削除しますか？"_s};
    return kind == ShortcutOwner::Customer ? customers : cases;
}

QString rowQuery(const ShortcutTable& table, const core::RecordKey& key)
{
    return table.rowQuery + QString::number(key.id) + table.rowMark + QString::number(key.mark);
}

} // namespace

QString shortcutName(const QString& path)
{
    return path.mid(std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/')) + 1);
}

core::SaveResult addShortcut(CustomerFile& file, ShortcutOwner kind, const core::RecordKey& owner,
                             const QString& path)
{
    const ShortcutTable& table = tableOf(kind);
    const QString parent = table.parentQuery + QString::number(owner.id) + table.parentMark
        + QString::number(owner.mark);
    return core::saveUnder(file, parent, [&] {
        core::FieldValues values{{table.markColumn, owner.mark},
                                 {table.ownerColumn, owner.id},
                                 {u"ﾌｧｲﾙ名"_s, shortcutName(path)},
                                 {u"場所"_s, path}};
        if (kind == ShortcutOwner::Case) {
            const std::optional<qint64> customer = core::readNumber(file, parent, u"ユーザーID"_s);
            if (!customer)
                return false;
            values.append({u"ユーザーID"_s, *customer});
        }
        return core::appendNumbered(file, idKind(table.kind), values).has_value();
    });
}

core::DeleteResult deleteShortcut(CustomerFile& file, ShortcutOwner kind,
                                  const core::RecordKey& key)
{
    const ShortcutTable& table = tableOf(kind);
    const QString query = rowQuery(table, key);
    storage::Recordset row;
    if (!row.open(query, file.connection)) {
        core::tellFailure(file.messages, core::ReadFailedText, file.connection);
        return core::DeleteResult::Failed;
    }
    if (row.eof()) {
        core::tellRowGone(file.messages);
        return core::DeleteResult::Gone;
    }
    const QString name = row.text(u"ﾌｧｲﾙ名");
    row.close(); // nothing is read while the user thinks
    if (!file.messages.confirm(name + table.question))
        return core::DeleteResult::Kept;
    return core::deleteChecked(file, query, key.stamp,
                               [&] { return runCascade(file, table.cascade, key); });
}

std::optional<QString> shortcutPath(CustomerFile& file, ShortcutOwner kind,
                                    const core::RecordKey& key)
{
    storage::Recordset row;
    if (!row.open(rowQuery(tableOf(kind), key), file.connection) || row.eof())
        return std::nullopt;
    return row.text(u"場所");
}

std::unique_ptr<core::RecordList> openShortcuts(CustomerFile& file, ShortcutOwner kind,
                                                const core::RecordKey& owner)
{
    const ShortcutTable& table = tableOf(kind);
    const core::ListColumns columns{table.updateIdColumn, table.markColumn,         table.idColumn,
                                    u"更新日時"_s,        {u"ﾌｧｲﾙ名"_s, u"場所"_s}, {}};
    return std::make_unique<core::RecordList>(file,
                                              table.listQuery + QString::number(owner.id)
                                                  + table.listMark + QString::number(owner.mark),
                                              columns, 0);
}

} // namespace customer
