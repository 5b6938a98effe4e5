#include "customer/data/shortcuts.h"

using namespace Qt::StringLiterals;
using enum records::KeyedText::Number;

namespace customer {

namespace {

const QString OfCustomer = u"SELECT * From ユーザー関連ファイル"_s;
const QString OfCase = u"SELECT * From 件名関連ファイル"_s;

records::RecordTable customerFileTable()
{
    return {
        .name = u"ユーザー関連ファイル"_s,
        .numbering = {u"SELECT Max(ﾕｰｻﾞｰ関連更新ID) as ma1 From ユーザー関連ファイル "_s,
                      u"SELECT * From ユーザー関連ファイル Where ﾕｰｻﾞｰ関連更新ID = "_s,
                      u"ユーザー関連"_s},
        .updateIdColumn = u"ﾕｰｻﾞｰ関連更新ID"_s,
        .markColumn = u"ﾕｰｻﾞｰ関連識別ID"_s,
        .idColumn = u"ﾕｰｻﾞｰ関連ID"_s,
        .rowQuery = {u"Select * From ユーザー関連ファイル Where ﾕｰｻﾞｰ関連ID ="_s, Id,
                     u" AND ﾕｰｻﾞｰ関連識別ID ="_s},
        .parents = {{{u"SELECT * From ユーザー WHERE ﾕｰｻﾞｰID = "_s, Id, u" AND ﾕｰｻﾞｰ識別ID = "_s},
                     u"ﾕｰｻﾞｰID"_s,
                     u"ﾕｰｻﾞｰ関連識別ID"_s}},
        .cascade = {{u"DELETE FROM ユーザー関連ファイル Where ﾕｰｻﾞｰ関連ID ="_s, Id,
                     u" and ﾕｰｻﾞｰ関連識別ID="_s}},
    };
}

records::RecordTable caseFileTable()
{
    return {
        .name = u"件名関連ファイル"_s,
        .numbering = {u"SELECT Max(件名関連更新ID) as ma1 From 件名関連ファイル "_s,
                      u"SELECT * From 件名関連ファイル Where 件名関連更新ID = "_s, u"件名関連"_s},
        .updateIdColumn = u"件名関連更新ID"_s,
        .markColumn = u"件名関連識別ID"_s,
        .idColumn = u"件名関連ID"_s,
        .rowQuery = {u"Select * From 件名関連ファイル Where 件名関連ID ="_s, Id,
                     u" AND 件名関連識別ID ="_s},
        .parents = {{{u"SELECT * From 件名 WHERE 件名ID = "_s, Id, u" AND 件名識別ID = "_s},
                     u"件名ID"_s,
                     u"件名関連識別ID"_s,
                     {{u"ユーザーID"_s, u"ユーザーID"_s}}}},
        .cascade = {{u"DELETE FROM 件名関連ファイル Where 件名関連ID ="_s, Id,
                     u" and 件名関連識別ID="_s}},
    };
}

records::RelatedFiles madeOf(const records::RecordTable& table, const QString& rows,
                             const records::KeyedText& condition, const QString& question)
{
    return {table,
            {.statement = rows,
             .updateId = table.updateIdColumn,
             .mark = table.markColumn,
             .id = table.idColumn,
             .stamp = u"更新日時"_s,
             .columns = {{u"ﾌｧｲﾙ名"_s, u"ﾌｧｲﾙ名"_s}, {u"場所"_s, u"場所"_s}}},
            condition,
            question};
}

} // namespace

const records::RelatedFiles& customerFiles()
{
    static const records::RelatedFiles files = madeOf(
        customerFileTable(), OfCustomer, {u" WHERE ﾕｰｻﾞｰID ="_s, Id, u" and ﾕｰｻﾞｰ関連識別ID="_s},
        u" ショートカットを削除しますか？"_s);
    return files;
}

const records::RelatedFiles& caseFiles()
{
    static const records::RelatedFiles files =
        madeOf(caseFileTable(), OfCase, {u" WHERE 件名ID ="_s, Id, u" and 件名関連識別ID="_s},
               u" を削除しますか？"_s);
    return files;
}

} // namespace customer
