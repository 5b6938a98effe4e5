#include "customer/data/cases.h"

#include "customer/data/settings.h"
#include "storage/recordset.h"
#include "text/dates.h"

using namespace Qt::StringLiterals;

namespace customer {

namespace {

const QString CaseRow = u"Select * From 件名 Where 件名更新ID ="_s;
const QString CaseMax = u"SELECT Max(件名更新ID) as ma1 From 件名 "_s;
const QString NewCaseRow = u"SELECT * From 件名 Where 件名更新ID = "_s;
const QString OwnerOfCase = u"SELECT * From ﾕｰｻﾞｰ WHERE ﾕｰｻﾞｰID = "_s;
const QString OwnerOfCaseMark = u" AND ﾕｰｻﾞｰ識別ID = "_s;
const QString Cases = u"SELECT DISTINCT "
                      "件名.件名更新ID ,"
                      "件名.件名ID ,"
                      "件名.件名識別ID ,"
                      "件名.登録日 ,"
                      "件名.予定日 ,"
                      "件名.件名 ,"
                      "件名.備考 as 件備考 ,"
                      "件名.判定 , "
                      "件名.K印字 , "
                      "件名.更新日時 as 件更新日時 , "
                      "件名.最近更新日時 , "
                      "ユーザー.* "
                      "FROM "
                      "ユーザー "
                      "INNER JOIN "
                      "件名 "
                      "ON "
                      "(ユーザー.ﾕｰｻﾞｰ識別ID = 件名.件名識別ID) "
                      "AND "
                      "(ユーザー.ﾕｰｻﾞｰID = 件名.ﾕｰｻﾞｰID) "_s;
const QString CaseCount = u"SELECT count(*) as ma2 FROM 件名"_s;
const QString ByCaseId = u" ,件名.件名ID"_s;
const QString ByRegistered = u" ORDER BY 件名.登録日"_s;
const QString ByPlanned = u" ORDER BY 件名.予定日"_s;
const QString ByCustomer = u" ORDER BY ユーザー.表示名"_s;
const QString ByTitle = u" ORDER BY 件名.件名"_s;
const QString ByNotes = u" ORDER BY 件名.備考"_s;
const QString ByState = u" ORDER BY 件名.判定"_s;

records::Cascade caseCascade()
{
    using enum records::KeyedText::Number;
    return {
        {u"DELETE FROM 件名 Where 件名更新ID ="_s, UpdateId},
        {u"DELETE FROM ログ Where 件名ID ="_s, Id, u" AND ログ識別ID="_s},
        {u"DELETE FROM 件名関連ファイル Where 件名ID ="_s, Id, u" AND 件名関連識別ID="_s},
    };
}

records::FieldValues derivedFrom(const records::FieldValues& row, const QDateTime& now)
{
    const bool finished = records::fieldText(row, u"判定") == QStringView(FinishedState);
    return records::changedNow(row, now)
        + records::FieldValues{{u"完了日"_s, finished ? text::formatDate(now.date()) : QString()}};
}

int emphasisOf(const storage::Recordset& row, int /*rowOnPage*/, const records::Settings& settings,
               QDate today)
{
    const QString planned = row.text(u"予定日").left(10); // without the weekday
    if (settings[settings::EmphasizePlanned] != 1 || planned.isEmpty()
        || row.text(u"判定") != QStringView(OpenState)) {
        return NoEmphasis;
    }
    const QString day = text::formatPlainDate(today);
    if (planned == day)
        return PlannedToday;
    return planned < day ? PlannedBefore : PlannedLater;
}

} // namespace

const records::RecordTable& caseTable()
{
    using enum records::KeyedText::Number;
    static const records::RecordTable table{
        .name = u"件名"_s,
        .numbering = {CaseMax, NewCaseRow, u"件名"_s},
        .updateIdColumn = u"件名更新ID"_s,
        .markColumn = u"件名識別ID"_s,
        .idColumn = u"件名ID"_s,
        .rowQuery = {CaseRow},
        .parents = {{{OwnerOfCase, Id, OwnerOfCaseMark}, u"ユーザーID"_s, u"件名識別ID"_s}},
        .touched = {{OwnerOfCase, u"ユーザーID"_s, OwnerOfCaseMark, u"件名識別ID"_s}},
        .cascade = caseCascade(),
        .derived = derivedFrom,
    };
    return table;
}

const records::ListDescription& caseList()
{
    static const records::ListDescription list{
        .statement = Cases,
        .updateId = u"件名更新ID"_s,
        .mark = u"件名識別ID"_s,
        .id = u"件名ID"_s,
        .stamp = u"件更新日時"_s,
        .columns = {{u"登録日"_s, u"登録日"_s, ByRegistered, 145},
                    {u"予定日"_s, u"予定日"_s, ByPlanned, 160},
                    {u"表示名"_s, u"表示名"_s, ByCustomer, 130, true},
                    {u"件名"_s, u"件名"_s, ByTitle, 170, true},
                    {u"備考"_s, u"件備考"_s, ByNotes, 90, true},
                    {u"判定"_s, u"判定"_s, ByState, 60}},
        .check = u"K印字"_s,
        .tieBreak = ByCaseId,
        .order = settings::CaseOrder,
        .descending = settings::CaseDescending,
        .pageRows = settings::CasesShown,
        .choices = {ByRegistered, ByPlanned, ByCustomer, ByTitle, ByNotes, ByState},
        .countQuery = CaseCount,
        .countField = u"ma2"_s,
        .emphasis = emphasisOf,
    };
    return list;
}

} // namespace customer
