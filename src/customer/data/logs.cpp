#include "customer/data/logs.h"

#include "customer/data/cascades.h"
#include "customer/data/cases.h"
#include "customer/data/id_issuer.h"
#include "storage/recordset.h"
#include "text/dates.h"

using namespace Qt::StringLiterals;

namespace customer {

namespace {

const QString RowQuery = u"Select * From ログ Where ログ更新ID ="_s;
const QString ParentQuery = u"SELECT * From 件名 WHERE 件名ID = "_s;
const QString ParentMark = u" AND 件名識別ID = "_s;
const QString LatestRecorders = u"SELECT 記録者 From ログ ORDER BY ログ更新ID DESC"_s;
const QString LogTable = u"ログ"_s;
const QString RecorderColumn = u"記録者"_s;

// The entries, from the last one back, that say who wrote most recently: all who still write, read
// in a few milliseconds whatever the file's size.
constexpr int EntriesLookedAt = 5000;
// More names than a list can drop down are left out.
constexpr int MostRecorders = 200;

QString rowQuery(const core::RecordKey& key)
{
    return RowQuery + QString::number(key.updateId);
}

core::FieldValues valuesOf(const LogFields& fields)
{
    return {{u"登録日"_s, text::formatDate(fields.recorded)},
            {u"記録者"_s, fields.recorder},
            {u"Rログ"_s, fields.text}};
}

bool touchCaseOf(CustomerFile& file, const core::RecordKey& key)
{
    const std::optional<KeptLog> kept = readLog(file, key);
    return kept && touchCase(file, kept->caseId, kept->key.mark);
}

// Those of the last entries, the latest first.
QStringList latestRecorders(CustomerFile& file)
{
    QStringList names;
    storage::Recordset rows;
    rows.setPageSize(EntriesLookedAt); // and no more is looked for
    if (!rows.open(LatestRecorders, file.connection))
        return names;
    for (int looked = 0; looked < EntriesLookedAt && !rows.eof(); ++looked) {
        const QString name = rows.value(0).toText();
        if (!name.isEmpty() && !names.contains(name))
            names.append(name);
        if (!rows.moveNext())
            break;
    }
    return names;
}

// All others, in their order.
void appendOlderRecorders(CustomerFile& file, QStringList& names)
{
    const QStringList all = file.connection.distinctTexts(LogTable, RecorderColumn);
    for (const QString& name : all) {
        if (names.size() >= MostRecorders)
            return;
        if (!names.contains(name))
            names.append(name);
    }
}

} // namespace

core::SaveResult addLog(CustomerFile& file, const core::RecordKey& ofCase, const LogFields& fields,
                        core::RecordKey* added)
{
    const QString parent =
        ParentQuery + QString::number(ofCase.id) + ParentMark + QString::number(ofCase.mark);
    std::optional<qint64> number;
    const core::SaveResult result = core::saveUnder(file, parent, [&] {
        const std::optional<qint64> customer = core::readNumber(file, parent, u"ユーザーID"_s);
        if (!customer)
            return false;
        const core::FieldValues owner{
            {u"ログ識別ID"_s, ofCase.mark}, {u"件名ID"_s, ofCase.id}, {u"ﾕｰｻﾞｰID"_s, *customer}};
        number = core::appendNumbered(file, idKind(Kind::Log), owner + valuesOf(fields));
        return number && touchCase(file, ofCase.id, ofCase.mark);
    });
    if (added && result == core::SaveResult::Saved) {
        const std::optional<KeptLog> kept = readLog(file, {*number, 0, *number, {}});
        *added = kept ? kept->key : core::RecordKey{};
    }
    return result;
}

core::SaveResult changeLog(CustomerFile& file, const core::RecordKey& key, const LogFields& fields,
                           const LogFields* shown)
{
    const core::FieldValues written =
        shown ? core::editedOf(valuesOf(fields), valuesOf(*shown)) : valuesOf(fields);
    return core::saveChecked(file, rowQuery(key), key.stamp, [&] {
        return core::writeRow(file, rowQuery(key), written) && touchCaseOf(file, key);
    });
}

core::DeleteResult deleteLog(CustomerFile& file, const core::RecordKey& key)
{
    if (!core::confirmDelete(file))
        return core::DeleteResult::Kept;
    return core::deleteChecked(file, rowQuery(key), key.stamp, [&] {
        return touchCaseOf(file, key) && runCascade(file, Cascade::Log, key);
    });
}

std::optional<KeptLog> readLog(CustomerFile& file, const core::RecordKey& key)
{
    storage::Recordset row;
    if (!row.open(rowQuery(key), file.connection) || row.eof())
        return std::nullopt;
    KeptLog kept;
    kept.key = {row.value(u"ログ更新ID").toInteger(), row.value(u"ログ識別ID").toInteger(),
                row.value(u"ログID").toInteger(), row.text(u"更新日時")};
    kept.caseId = row.value(u"件名ID").toInteger();
    kept.fields = {text::parseDate(row.text(u"登録日")).value_or(QDate()), row.text(u"記録者"),
                   row.text(u"Rログ")};
    return kept;
}

QStringList recorderNames(CustomerFile& file)
{
    QStringList names = latestRecorders(file);
    appendOlderRecorders(file, names);
    return names;
}

const core::LogTable& logTable()
{
    static const core::LogTable table{RowQuery, u"登録日"_s, u"記録者"_s, u"Rログ"_s};
    return table;
}

} // namespace customer
