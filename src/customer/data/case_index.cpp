#include "customer/data/case_index.h"

#include "customer/data/settings.h"
#include "storage/base/quoted.h"
#include "text/dates.h"

using namespace Qt::StringLiterals;

namespace customer {

using records::IndexNode;
using records::ListFilter;

namespace {

const QString RecentCasesFirst = u" ORDER BY 件名.最近更新日時 DESC"_s;
const QString CasesWithText = u"WHERE (件名.登録日 & ユーザー.表示名 & 件名.件名 & 件名.備考 & "
                              "件名.判定) Like '%"_s;
const QString CasesOfCustomer = u" WHERE ユーザー.ユーザーID = "_s;
const QString CaseOfNumber = u" WHERE 件名.件名ID = "_s;
const QString CaseMark = u" and 件名識別ID = "_s;
const QString RegisteredOn = u"WHERE 件名.登録日  Like '"_s;
const QString OrPlannedFor = u"' "
                             "OR 件名.予定日  Like '"_s;
const QString OpenCondition = u" WHERE"
                              " 件名.判定 = '続行'"_s;
const QString FinishedCondition = u" WHERE"
                                  " 件名.判定 = '完了'"_s;
const QString RecentCases = u" WHERE "
                            "(件名.最近更新日時 BETWEEN #"_s;

} // namespace

QList<IndexNode> caseIndex(const IndexNode::Filter& ownCases)
{
    QList<IndexNode> nodes{
        {u"個々"_s, ownCases},
        records::conditionNode(u"続行の件名表示"_s, OpenCondition),
        records::conditionNode(u"完了の件名表示"_s, FinishedCondition),
        records::conditionNode(u"全ての件名表示"_s, {}),
        {u"最近一週間"_s, recentCases},
    };
    for (qsizetype i = 0; i < nodes.size(); ++i)
        nodes[i].number = static_cast<int>(i);
    return nodes;
}

ListFilter casesOfCustomer(const core::RecordKey& customer, const QString& name)
{
    return {CasesOfCustomer + QString::number(customer.id) + CaseMark
                + QString::number(customer.mark),
            {},
            name + u" の件名表示"_s};
}

ListFilter singleCase(const core::RecordKey& ofCase)
{
    return {CaseOfNumber + QString::number(ofCase.id) + CaseMark + QString::number(ofCase.mark),
            {},
            u"件名表示"_s};
}

ListFilter casesOfDay(QDate day)
{
    const QString date = text::formatDate(day);
    return {RegisteredOn + date + OrPlannedFor + date + u'\'', {}, date + u"の件名表示"_s};
}

ListFilter recentCases(const records::IndexContext& context)
{
    const int days = context.settings[settings::RecentCaseDays];
    const QString start = text::formatPlainDate(context.today.addDays(-days));
    const QString end = text::formatPlainDate(context.today);
    return {RecentCases + start + u" 00:00:00# AND #"_s + end + u" 23:59:59#)"_s, RecentCasesFirst,
            start + u" ～ "_s + end + u" 更新"_s};
}

ListFilter casesWithText(const QString& text)
{
    return {
        CasesWithText + storage::quoted(text) + u"%'"_s, {}, u'\'' + text + u"'を含む件名表示"_s};
}

} // namespace customer
