#include "repair/data/logs.h"

using namespace Qt::StringLiterals;
using enum records::KeyedText::Number;

namespace repair {

namespace {

const QString RowQuery = u"Select * From 修理ログ Where 修理ログ更新ID ="_s;
const QString DeleteStatement = u"DELETE FROM 修理ログ Where 修理ログ更新ID ="_s;
const QString MaxQuery = u"SELECT Max(修理ログ更新ID) as ma1 From 修理ログ "_s;
const QString NewRowQuery = u"SELECT * From 修理ログ Where 修理ログ更新ID = "_s;
const QString JobQuery = u"SELECT * From 修理 WHERE 修理ID = "_s;
const QString JobMark = u" AND 修理識別ID = "_s;

} // namespace

const records::RecordTable& logTable()
{
    static const records::RecordTable table{
        .name = u"修理ログ"_s,
        .numbering = {MaxQuery, NewRowQuery, u"ログ"_s},
        .updateIdColumn = u"修理ログ更新ID"_s,
        .markColumn = u"修理ログ識別ID"_s,
        .idColumn = u"修理ログID"_s,
        .rowQuery = {RowQuery},
        .parents = {{{JobQuery, Id, JobMark}, u"修理ID"_s, u"修理ログ識別ID"_s}},
        .touched = {{JobQuery, u"修理ID"_s, JobMark, u"修理ログ識別ID"_s}},
        .cascade = {{DeleteStatement}},
    };
    return table;
}

const records::LogTable& previewedLogs()
{
    static const records::LogTable logs{logTable(), u"記録日"_s, u"記録者"_s, u"ログ"_s};
    return logs;
}

} // namespace repair
