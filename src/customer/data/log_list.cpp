#include "customer/data/log_list.h"

using namespace Qt::StringLiterals;

namespace customer {

namespace {

const QString Logs = u"SELECT * FROM ログ"_s;
const QString TieBreak = u" ,ログID"_s;
// By column of the list.
const QString SortClauses[] = {
    u" ORDER BY 登録日"_s,
    u" ORDER BY 記録者"_s,
    u" ORDER BY Rログ"_s,
};
// The column that each value of 並べ05 means.
constexpr int SortChoices[] = {0, 1, 2};

} // namespace

ListFilter logsOfCase(const core::RecordKey& ofCase, const QString& title)
{
    return {u" WHERE 件名ID ="_s + QString::number(ofCase.id) + u" and ログ識別ID="_s
                + QString::number(ofCase.mark),
            {},
            title + u" のログ"_s};
}

QString logSortClause(const SortOrder& order)
{
    return sortClause(SortClauses, order, TieBreak);
}

SortOrder logSortOf(const Settings& settings)
{
    return sortOf(SortChoices, settings.logSort, settings.logDescending);
}

std::unique_ptr<core::RecordList> openLogList(CustomerFile& file, const ListFilter& filter,
                                              const std::optional<SortOrder>& clicked,
                                              const Settings& settings)
{
    const core::ListColumns columns{u"ログ更新ID"_s,
                                    u"ログ識別ID"_s,
                                    u"ログID"_s,
                                    u"更新日時"_s,
                                    {u"登録日"_s, u"記録者"_s, u"Rログ"_s},
                                    {}};
    const QString order = logSortClause(clicked.value_or(logSortOf(settings)));
    return std::make_unique<core::RecordList>(
        file, listStatement(Logs, filter, clicked.has_value(), order), columns, settings.logsShown);
}

} // namespace customer
