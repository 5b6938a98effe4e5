#include "hand_lists.h"

#include "customer/data/case_index.h"
#include "customer/data/cases.h"
#include "customer/data/customer_index.h"
#include "customer/data/customers.h"
#include "customer/data/settings.h"
#include "text/dates.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

// Before what an index of a filter is over.
constexpr QChar IndexedPart = u'~';
const QString OrderBy = u" ORDER BY "_s;
const QString Customer = uR"("ユーザー" AS u)"_s;
const QString OfCustomer = uR"( WHERE u."_rowid_" = ?1)"_s;
const QString CaseColumns =
    uR"(k."件名更新ID", k."件名ID", k."件名識別ID", k."登録日", k."予定日", k."件名", k."備考", )"_s
    + uR"(k."判定", k."K印字", k."更新日時", k."最近更新日時", u.*)"_s;
const QString Owned = uR"( ON u."ﾕｰｻﾞｰ識別ID" = k."件名識別ID" AND u."ﾕｰｻﾞｰID" = k."ユーザーID")"_s;
const QString Case = uR"("件名" AS k)"_s;
const QString OfCase =
    Case + u" CROSS JOIN "_s + Customer + uR"( WHERE k."_rowid_" = ?1 AND u."_rowid_" = ?2)"_s;
// Indexes of a table that begin with an expression.
const QString IndexesOf = u"SELECT name FROM sqlite_schema WHERE type = 'index' AND tbl_name = '"_s;
const QString BeginningWith = u"' AND instr(sql, '("_s;

const QStringList ByKey{u"corvane_key"_s};
// Dates are written so that their fold has the order of their key.
const QStringList ByKeyOrFold{u"corvane_key"_s, u"corvane_fold"_s};

const QStringList KaRow{
    uR"(~corvane_key(u."表示名ﾌﾘｶﾞﾅ") >= corvane_key('カ') AND ~corvane_key(u."表示名ﾌﾘｶﾞﾅ") < corvane_key('サ'))"_s,
    uR"(~corvane_fold(u."表示名ﾌﾘｶﾞﾅ") >= 'カ' AND ~corvane_fold(u."表示名ﾌﾘｶﾞﾅ") < 'サ')"_s,
    uR"(corvane_like('[ｶ-ｺ]%', u."表示名ﾌﾘｶﾞﾅ"))"_s};

HandFilter kaRow(customer::CustomerFile& file, QDate today)
{
    return {u"か行"_s, filterOf(customer::customerIndex(file).children, u"か行"_s, {}, today),
            KaRow};
}

HandFilter recent(int days, QDate today)
{
    records::Settings settings;
    settings.set(customer::settings::RecentCustomerDays, days);
    const QString condition = uR"(~u."最近更新日時" BETWEEN ')"_s
        + text::formatPlainDate(today.addDays(-days)) + u" 00:00:00.000' AND '"_s
        + text::formatPlainDate(today) + u" 23:59:59.000'"_s;
    return {u"最近更新 of "_s + QString::number(days) + u" days"_s,
            customer::recentCustomers({settings, today}),
            {condition},
            {},
            settings};
}

HandFilter ofState(const QString& state)
{
    const records::ListFilter filter =
        filterOf(customer::caseIndex({}), state + u"の件名表示"_s, {}, {});
    return {state,
            filter,
            {uR"(~corvane_fold(k."判定") = ')"_s + state + u'\'',
             uR"(~corvane_key(k."判定") = corvane_key(')"_s + state + u"')"_s},
            u"判定"_s};
}

QStringList addresses(const HandList& list)
{
    QStringList columns;
    for (const QString& alias : list.aliases)
        columns += alias + uR"(."_rowid_" AS of_)"_s + alias;
    return columns;
}

QString limit(const Window& window)
{
    return u" LIMIT "_s + QString::number(window.rows) + u" OFFSET "_s
        + QString::number(window.offset);
}

QString where(const QString& condition)
{
    return condition.isEmpty() ? QString() : u" WHERE "_s + condition;
}

QString withIndex(const HandSource& source, const QString& index)
{
    QString from = source.from;
    return from.replace(u'@', index.isEmpty() ? QString() : uR"( INDEXED BY ")"_s + index + u'"');
}

// The sources that begin with the table of the order, with each index that has the order.
QStringList inOrder(const BareFile& bare, const HandList& list, const HandOrder& order,
                    const QString& function)
{
    const QString part = function + u"(\""_s + order.ordered + u"\")"_s;
    QStringList sources;
    for (const HandSource& source : list.sources) {
        if (source.table != order.table)
            continue;
        for (const QString& index :
             bare.texts(IndexesOf + source.name + BeginningWith + part + u"')"_s))
            sources += withIndex(source, index);
        sources += withIndex(source, {});
    }
    return sources;
}

} // namespace

records::ListFilter filterOf(const QList<records::IndexNode>& nodes, const QString& caption,
                             const records::Settings& settings, QDate today)
{
    const auto found = std::ranges::find(nodes, caption, &records::IndexNode::caption);
    return *found->filter({settings, today});
}

std::unique_ptr<records::RecordList> HandList::open(const HandFilter& filter, int column,
                                                    bool descending) const
{
    return openList(*file, *list, filter.filter, orderOf(*list, column, descending),
                    filter.settings);
}

HandList customerList(customer::CustomerFile& file, QDate today)
{
    HandList list;
    list.name = u"customers"_s;
    list.columns = u"u.*"_s;
    list.aliases = QStringList{u"u"_s};
    list.sources = {{u"u"_s, u"ユーザー"_s, Customer + u'@'}};
    list.ofRow = u"SELECT u.* FROM "_s + Customer + OfCustomer;
    list.tieBreak = uR"(u."ﾕｰｻﾞｰID")"_s;
    list.orders = {{u"表示名ﾌﾘｶﾞﾅ"_s, 0, u"u"_s, u"表示名ﾌﾘｶﾞﾅ"_s, ByKey},
                   {u"自宅TEL"_s, 1, u"u"_s, u"自宅TEL"_s, ByKey},
                   {u"会社TEL"_s, 2, u"u"_s, u"会社TEL"_s, ByKey},
                   {u"E-MAIL"_s, 3, u"u"_s, u"E-MAIL"_s, ByKey}};
    list.filters = {
        kaRow(file, today), recent(2, today), recent(7, today), {u"顧客管理"_s, {}, {}}};
    list.list = &customer::customerList();
    list.file = &file;
    return list;
}

HandList caseList(customer::CustomerFile& file)
{
    HandList list;
    list.name = u"cases"_s;
    list.columns = CaseColumns;
    list.aliases = QStringList{u"k"_s, u"u"_s};
    list.sources = {{u"k"_s, u"件名"_s, Case + u"@ CROSS JOIN "_s + Customer + Owned},
                    {u"u"_s, u"ユーザー"_s, Customer + u"@ CROSS JOIN "_s + Case + Owned}};
    list.ofRow = u"SELECT "_s + CaseColumns + u" FROM "_s + OfCase;
    list.tieBreak = uR"(k."件名ID")"_s;
    list.orders = {{u"登録日"_s, 0, u"k"_s, u"登録日"_s, ByKeyOrFold},
                   {u"予定日"_s, 1, u"k"_s, u"予定日"_s, ByKeyOrFold},
                   {u"表示名"_s, 2, u"u"_s, u"表示名"_s, ByKey},
                   {u"件名"_s, 3, u"k"_s, u"件名"_s, ByKey},
                   {u"備考"_s, 4, u"k"_s, u"備考"_s, ByKey},
                   {u"判定"_s, 5, u"k"_s, u"判定"_s, ByKey}};
    list.filters = {ofState(u"続行"_s), ofState(u"完了"_s), {u"全て"_s, {}, {}}};
    list.list = &customer::caseList();
    list.file = &file;
    return list;
}

HandWritten HandWay::wide(const HandList& list, const Window& window) const
{
    return {u"SELECT "_s + list.columns + u" FROM "_s + from + where(condition) + order
            + limit(window)};
}

HandWritten HandWay::narrow(const HandList& list, const Window& window) const
{
    QString statement =
        u"SELECT "_s + list.columns + u" FROM ("_s + inTwoSteps(list, window).statement + u')';
    for (const HandSource& source : list.sources) {
        statement += u" CROSS JOIN \""_s + source.name + u"\" AS "_s + source.table + u" ON "_s
            + source.table + uR"(."_rowid_" = of_)"_s + source.table;
    }
    return {statement};
}

HandWritten HandWay::inTwoSteps(const HandList& list, const Window& window) const
{
    return {u"SELECT "_s + addresses(list).join(u", "_s) + u" FROM "_s + from + where(condition)
                + order + limit(window),
            list.ofRow};
}

QString HandWay::count() const
{
    return u"SELECT count(*) FROM "_s + from + where(condition);
}

std::vector<HandWay> handWays(const BareFile& bare, const HandList& list, const HandOrder& order,
                              bool descending, const HandFilter& filter)
{
    std::vector<HandWay> ways;
    QSet<QString> plans; // two that the engine reads alike are one
    const auto add = [&](const QString& from, const QString& condition, const QString& ordered) {
        // A plus sign keeps the engine from the condition's index, at the place of any other.
        for (const QString& sign : {u""_s, u"+"_s}) {
            const HandWay way{from, QString(condition).replace(IndexedPart, sign),
                              OrderBy + ordered};
            const QString plan = bare.plan(way.inTwoSteps(list, {0, 1}).statement);
            if (!plan.isEmpty() && !plans.contains(condition + plan)) {
                plans.insert(condition + plan);
                ways.push_back(way);
            }
        }
    };
    const QString tail = (descending ? u" DESC, "_s : u", "_s) + list.tieBreak;
    for (const QString& condition :
         filter.conditions.isEmpty() ? QStringList{{}} : filter.conditions) {
        // Where all rows are alike in the column of the order, only the tie-break orders them.
        if (order.ordered == filter.onlyValueOf)
            add(withIndex(list.sources.first(), {}), condition, list.tieBreak);
        for (const QString& function : order.functions) {
            const QString key = function + u'(' + order.table + u".\""_s + order.ordered + u"\")"_s;
            for (const QString& source : inOrder(bare, list, order, function))
                add(source, condition, key + tail);
            // To begin with another table than the order's and the list's own serves nothing.
            for (const HandSource& source : list.sources) {
                if (source.table == order.table || source.table == list.aliases.first())
                    add(withIndex(source, {}), condition, u'+' + key + tail);
            }
        }
    }
    return ways;
}

} // namespace bench
