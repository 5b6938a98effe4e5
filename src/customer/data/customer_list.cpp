#include "customer/data/customer_list.h"

using namespace Qt::StringLiterals;

namespace customer {

namespace {

const QString Customers = u"SELECT * FROM ユーザー"_s;
const QString TieBreak = u" ,ユーザー.ﾕｰｻﾞｰID"_s;
// By column of the list.
const QString SortClauses[] = {
    u" ORDER BY ユーザー.表示名ﾌﾘｶﾞﾅ"_s,
    u" ORDER BY ユーザー.自宅ＴＥＬ"_s,
    u" ORDER BY ユーザー.会社ＴＥＬ"_s,
    u" ORDER BY ユーザー.[E-MAIL]"_s,
};
// The column that each value of 並べ01 means.
constexpr int SortChoices[] = {0, 2, 1};

} // namespace

QString customerSortClause(const SortOrder& order)
{
    return sortClause(SortClauses, order, TieBreak);
}

SortOrder customerSortOf(const Settings& settings)
{
    return sortOf(SortChoices, settings.customerSort, settings.customerDescending);
}

std::unique_ptr<core::RecordList> openCustomerList(CustomerFile& file, const ListFilter& filter,
                                                   const std::optional<SortOrder>& clicked,
                                                   const Settings& settings)
{
    const core::ListColumns columns{u"ﾕｰｻﾞｰ更新ID"_s,
                                    u"ﾕｰｻﾞｰ識別ID"_s,
                                    u"ﾕｰｻﾞｰID"_s,
                                    u"更新日時"_s,
                                    {u"表示名"_s, u"自宅TEL"_s, u"会社TEL"_s, u"E-MAIL"_s},
                                    u"Y印字"_s};
    const QString order = customerSortClause(clicked.value_or(customerSortOf(settings)));
    return std::make_unique<core::RecordList>(
        file, listStatement(Customers, filter, clicked.has_value(), order), columns,
        settings.customersShown);
}

} // namespace customer
