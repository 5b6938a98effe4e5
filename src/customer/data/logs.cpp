#include "customer/data/logs.h"

#include "customer/data/settings.h"
#include "storage/recordset.h"

using namespace Qt::StringLiterals;

namespace customer {

namespace {

const QString LogRow = u"Select * From ログ Where ログ更新ID ="_s;
const QString DeleteLog = u"DELETE FROM ログ Where ログ更新ID ="_s;
const QString LogMax = u"SELECT Max(ログ更新ID) as ma1 From ログ "_s;
const QString NewLogRow = u"SELECT * From ログ Where ログ更新ID = "_s;
const QString CaseOfLog = u"SELECT * From 件名 WHERE 件名ID = "_s;
const QString CaseOfLogMark = u" AND 件名識別ID = "_s;
const QString TouchedCase = u"Select * From 件名 Where 件名識別ID ="_s;
const QString TouchedCaseId = u" AND 件名ID = "_s;
const QString OwnerOfLog = u"SELECT * From ﾕｰｻﾞｰ WHERE ﾕｰｻﾞｰID = "_s;
const QString OwnerOfLogMark = u" AND ﾕｰｻﾞｰ識別ID = "_s;
const QString Logs = u"SELECT * FROM ログ"_s;
const QString LogsOfCase = u" WHERE 件名ID ="_s;
const QString LogsMark = u" and ログ識別ID="_s;
const QString LogCount = u"SELECT count(*) as ma3 FROM ログ"_s;
const QString ByLogId = u" ,ログID"_s;
const QString ByDay = u" ORDER BY 登録日"_s;
const QString ByText = u" ORDER BY Rログ"_s;
const QString ByRecorder = u" ORDER BY 記録者"_s;
const QString LatestRecorders = u"SELECT 記録者 From ログ ORDER BY ログ更新ID DESC"_s;
const QString LogTable = u"ログ"_s;
const QString RecorderColumn = u"記録者"_s;

// The entries, from the last one back, that say who wrote most recently: all who still write, read
// in a few milliseconds whatever the file's size.
constexpr int EntriesLookedAt = 5000;
// More names than a list can drop down are left out.
constexpr int MostRecorders = 200;

// Those of the last entries, the latest first.
QStringList latestRecorders(records::Database& data)
{
    QStringList names;
    storage::Recordset rows;
    rows.setPageSize(EntriesLookedAt); // and no more is looked for
    if (!rows.open(LatestRecorders, data.connection))
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
void appendOlderRecorders(records::Database& data, QStringList& names)
{
    const QStringList all = data.connection.distinctTexts(LogTable, RecorderColumn);
    for (const QString& name : all) {
        if (names.size() >= MostRecorders)
            return;
        if (!names.contains(name))
            names.append(name);
    }
}

} // namespace

const records::RecordTable& logTable()
{
    using enum records::KeyedText::Number;
    static const records::RecordTable table{
        .name = LogTable,
        .numbering = {LogMax, NewLogRow, LogTable},
        .updateIdColumn = u"ログ更新ID"_s,
        .markColumn = u"ログ識別ID"_s,
        .idColumn = u"ログID"_s,
        .rowQuery = {LogRow},
        .parents = {{{CaseOfLog, Id, CaseOfLogMark},
                     u"件名ID"_s,
                     u"ログ識別ID"_s,
                     {{u"ユーザーID"_s, u"ユーザーID"_s}}}},
        .touched = {{TouchedCase, u"ログ識別ID"_s, TouchedCaseId, u"件名ID"_s},
                    {OwnerOfLog, u"ユーザーID"_s, OwnerOfLogMark, u"ログ識別ID"_s}},
        .cascade = {{DeleteLog}},
    };
    return table;
}

const records::ListDescription& logList()
{
    static const records::ListDescription list{
        .statement = Logs,
        .updateId = u"ログ更新ID"_s,
        .mark = u"ログ識別ID"_s,
        .id = u"ログID"_s,
        .stamp = u"更新日時"_s,
        .columns = {{u"記録日"_s, u"登録日"_s, ByDay, 120},
                    {u"記録者"_s, u"記録者"_s, ByRecorder, 120},
                    {u"ログ"_s, u"Rログ"_s, ByText, 300, true}},
        .tieBreak = ByLogId,
        .order = settings::LogOrder,
        .descending = settings::LogDescending,
        .pageRows = settings::LogsShown,
        .choices = {ByDay, ByRecorder, ByText},
        .countQuery = LogCount,
        .countField = u"ma3"_s,
    };
    return list;
}

records::ListFilter logsOfCase(const core::RecordKey& ofCase, const QString& title)
{
    return {LogsOfCase + QString::number(ofCase.id) + LogsMark + QString::number(ofCase.mark),
            {},
            title + u" のログ"_s};
}

const records::LogTable& previewedLogs()
{
    static const records::LogTable logs{logTable(), u"登録日"_s, RecorderColumn, u"Rログ"_s};
    return logs;
}

QStringList recorderNames(records::Database& data)
{
    QStringList names = latestRecorders(data);
    appendOlderRecorders(data, names);
    return names;
}

} // namespace customer
