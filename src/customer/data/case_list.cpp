#include "customer/data/case_list.h"

#include "core/data/clock.h"
#include "customer/data/cases.h"
#include "text/dates.h"

using namespace Qt::StringLiterals;

namespace customer {

namespace {

const QString Cases = u"SELECT DISTINCT "_s + u"件名.件名更新ID ,"_s + u"件名.件名ID ,"_s
    + u"件名.件名識別ID ,"_s + u"件名.登録日 ,"_s + u"件名.予定日 ,"_s + u"件名.件名 ,"_s
    + u"件名.備考 as 件備考 ,"_s + u"件名.判定 , "_s + u"件名.K印字 , "_s
    + u"件名.更新日時 as 件更新日時 , "_s + u"件名.最近更新日時 , "_s + u"ユーザー.* "_s
    + u"FROM "_s + u"ユーザー "_s + u"INNER JOIN "_s + u"件名 "_s + u"ON "_s
    + u"(ユーザー.ﾕｰｻﾞｰ識別ID = 件名.件名識別ID) "_s + u"AND "_s
    + u"(ユーザー.ﾕｰｻﾞｰID = 件名.ﾕｰｻﾞｰID) "_s;
const QString TieBreak = u" ,件名.件名ID"_s;
// By column of the list.
const QString SortClauses[] = {
    u" ORDER BY 件名.登録日"_s, u" ORDER BY 件名.予定日"_s, u" ORDER BY ユーザー.表示名"_s,
    u" ORDER BY 件名.件名"_s,   u" ORDER BY 件名.備考"_s,   u" ORDER BY 件名.判定"_s,
};
// The column that each value of 並べ03 means.
constexpr int SortChoices[] = {0, 1, 2, 3, 4, 5};

int emphasisOf(const storage::Recordset& row, const QString& today)
{
    const QString planned = row.text(u"予定日").left(10); // without the weekday
    if (planned.isEmpty() || row.text(u"判定") != QStringView(OpenState))
        return NoEmphasis;
    if (planned == today)
        return PlannedToday;
    return planned < today ? PlannedBefore : PlannedLater;
}

} // namespace

QString caseSortClause(const SortOrder& order)
{
    return sortClause(SortClauses, order, TieBreak);
}

SortOrder caseSortOf(const Settings& settings)
{
    return sortOf(SortChoices, settings.caseSort, settings.caseDescending);
}

std::unique_ptr<core::RecordList> openCaseList(CustomerFile& file, const ListFilter& filter,
                                               const std::optional<SortOrder>& clicked,
                                               const Settings& settings)
{
    core::ListColumns columns{
        u"件名更新ID"_s,
        u"件名識別ID"_s,
        u"件名ID"_s,
        u"件更新日時"_s,
        {u"登録日"_s, u"予定日"_s, u"表示名"_s, u"件名"_s, u"件備考"_s, u"判定"_s},
        u"K印字"_s};
    if (settings.emphasizePlanned == 1) {
        columns.emphasis = [today = text::formatPlainDate(file.clock.today())](
                               const storage::Recordset& row) { return emphasisOf(row, today); };
    }
    const QString order = caseSortClause(clicked.value_or(caseSortOf(settings)));
    return std::make_unique<core::RecordList>(
        file, listStatement(Cases, filter, clicked.has_value(), order), columns,
        settings.casesShown);
}

} // namespace customer
