#include "customer/data/case_index.h"
#include "customer/data/case_list.h"
#include "customer/data/customer_index.h"
#include "customer/data/customer_list.h"
#include "customer/data/log_list.h"
#include "customer/data/logs.h"
#include "support/customer/data/customer_test.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using customer::ListFilter;
using customer::Settings;
using customer::SortOrder;

namespace {

class ListTest : public OpenCustomerTest {
protected:
    // Customers 001 … n, whose reading is their name.
    void addCustomers(int number)
    {
        for (int i = 1; i <= number; ++i) {
            const QString name = QString::number(i).rightJustified(3, u'0');
            addNamed(name, name);
        }
    }

    static QStringList cellsOf(core::ListSource& list, int column)
    {
        QStringList cells;
        for (const core::ListRow& row : list.rows(0, 1000))
            cells.append(row.cells.value(column));
        return cells;
    }

    QStringList titlesOf(const ListFilter& filter)
    {
        return cellsOf(*openCaseList(file, filter, {}, Settings{}), 3);
    }
};

TEST_F(ListTest, ReadsPagesAndStretchesOfThem)
{
    addCustomers(25);
    Settings settings;
    settings.customersShown = 10;
    const auto list = openCustomerList(file, {}, {}, settings);
    EXPECT_EQ(list->total(), 25);
    EXPECT_EQ(list->pageCount(), 3);
    EXPECT_EQ(list->count(), 10);
    EXPECT_EQ(list->rows(8, 5).last().cells.first(), u"010"); // not beyond the page
    list->setPage(3);
    EXPECT_EQ(list->count(), 5);
    EXPECT_EQ(list->rows(4, 9).first().cells.first(), u"025");
    EXPECT_TRUE(list->rows(5, 9).isEmpty());
    list->setPage(99);
    EXPECT_EQ(list->page(), 3);
    list->setPage(0);
    EXPECT_EQ(list->page(), 1);
    EXPECT_EQ(list->rows(1, 1).first().cells.first(), u"002");

    settings.customersShown = 0; // one page with all rows
    const auto all = openCustomerList(file, {}, {}, settings);
    EXPECT_EQ(all->pageCount(), 1);
    EXPECT_EQ(all->count(), 25);
    EXPECT_EQ(all->rows(24, 256).first().cells.first(), u"025");
}

// What is rare is found by another way than what many rows hold; both give the same order.
TEST_F(ListTest, ASearchFindsTheRareAndTheCommonInOrder)
{
    addNamed(u"並"_s, u"ｱ"_s);
    ASSERT_TRUE(file.connection.begin());
    for (int i = 0; i < 14; ++i)
        execute(u"INSERT INTO ユーザー (表示名, 表示名ﾌﾘｶﾞﾅ) "
                "SELECT 表示名, 表示名ﾌﾘｶﾞﾅ FROM ユーザー"_s);
    ASSERT_TRUE(file.connection.commit());
    addNamed(u"珍二"_s, u"ﾝ"_s);
    addNamed(u"珍一"_s, u"ﾜ"_s);
    const auto rare = openCustomerList(file, customer::customersWithText(u"珍"_s), {}, Settings{});
    EXPECT_EQ(rare->count(), 2);
    EXPECT_EQ(cellsOf(*rare, 0), QStringList({u"珍一"_s, u"珍二"_s}));
    const auto common =
        openCustomerList(file, customer::customersWithText(u"並"_s), {}, Settings{});
    EXPECT_EQ(common->count(), Settings{}.customersShown);
    EXPECT_EQ(common->total(), 16384);
}

TEST_F(ListTest, CustomerRowsCarryKeyCellsAndFlag)
{
    customer::CustomerFields fields;
    fields.texts = {u"ﾊｼｺﾞ"_s, u"髙橋"_s};
    fields.texts[customer::HomePhone] = u"03"_s;
    fields.texts[customer::CompanyPhone] = u"06"_s;
    fields.texts[customer::Email] = u"a@b"_s;
    fields.print = true;
    core::RecordKey key;
    EXPECT_EQ(addCustomer(file, fields, &key), records::SaveResult::Saved);
    const auto list = openCustomerList(file, {}, {}, {});
    const core::ListRow row = list->rows(0, 1).value(0);
    EXPECT_EQ(row.key, key.toText());
    EXPECT_EQ(row.cells, (QStringList{u"髙橋"_s, u"03"_s, u"06"_s, u"a@b"_s}));
    EXPECT_TRUE(row.checked);
}

TEST_F(ListTest, SortClausesOfColumnsAndSettings)
{
    EXPECT_EQ(customer::customerSortClause({0, false}),
              u" ORDER BY ユーザー.表示名ﾌﾘｶﾞﾅ ,ユーザー.ﾕｰｻﾞｰID");
    EXPECT_EQ(customer::customerSortClause({3, true}),
              u" ORDER BY ユーザー.[E-MAIL] DESC ,ユーザー.ﾕｰｻﾞｰID");
    EXPECT_EQ(customer::caseSortClause({0, true}), u" ORDER BY 件名.登録日 DESC ,件名.件名ID");
    EXPECT_EQ(customer::logSortClause({1, false}), u" ORDER BY 記録者 ,ログID");

    Settings settings;
    settings.customerSort = 1; // 会社TEL
    settings.customerDescending = 1;
    settings.caseSort = 5;
    settings.logSort = 9; // out of range
    EXPECT_EQ(customer::customerSortClause(customerSortOf(settings)),
              u" ORDER BY ユーザー.会社ＴＥＬ DESC ,ユーザー.ﾕｰｻﾞｰID");
    EXPECT_EQ(customer::caseSortClause(caseSortOf(settings)), u" ORDER BY 件名.判定 ,件名.件名ID");
    EXPECT_EQ(customer::logSortClause(logSortOf(settings)), u" ORDER BY 登録日 ,ログID");
}

TEST_F(ListTest, CasesOfOneDayStayInNumberOrderWhenDescending)
{
    const core::RecordKey owner = addNamed(u"客"_s, u"ｷｬｸ"_s).key;
    addCaseOf(owner, u"一"_s);
    addCaseOf(owner, u"二"_s);
    clock.set(QDate(2024, 4, 16));
    addCaseOf(owner, u"三"_s);
    const auto list = openCaseList(file, customer::allCases(), SortOrder{0, true}, {});
    EXPECT_EQ(cellsOf(*list, 3), (QStringList{u"三"_s, u"一"_s, u"二"_s}));
}

TEST_F(ListTest, CaseFilters)
{
    const core::RecordKey first = addNamed(u"一郎"_s, u"ｲﾁ"_s).key;
    const core::RecordKey second = addNamed(u"二郎"_s, u"ｼﾞ"_s).key;
    addCaseOf(first, u"修繕"_s);
    customer::KeptCase planned = addCaseOf(second, u"点検"_s);
    planned.fields.planned = QDate(2024, 5, 1);
    planned.fields.notes = u"'50%引き'"_s;
    EXPECT_EQ(changeCase(file, planned.key, planned.fields), records::SaveResult::Saved);
    clock.set(QDate(2024, 5, 1));
    customer::KeptCase done = addCaseOf(second, u"納入"_s);
    done.fields.state = u"完了"_s;
    EXPECT_EQ(changeCase(file, done.key, done.fields), records::SaveResult::Saved);

    const struct {
        ListFilter filter;
        QString caption;
        QStringList titles;
    } expected[] = {
        {customer::casesOfCustomer(first, u"一郎"_s), u"一郎 の件名表示"_s, {u"修繕"_s}},
        {customer::casesOfCustomer({0, 1, 1, {}}, u"他"_s), u"他 の件名表示"_s, {}},
        {customer::openCases(), u"続行の件名表示"_s, {u"修繕"_s, u"点検"_s}},
        {customer::finishedCases(), u"完了の件名表示"_s, {u"納入"_s}},
        {customer::allCases(), u"全ての件名表示"_s, {u"修繕"_s, u"点検"_s, u"納入"_s}},
        {customer::casesOfDay({2024, 5, 1}), u"2024/05/01(水)の件名表示"_s, {u"点検"_s, u"納入"_s}},
        {customer::casesOfDay({2024, 5, 2}), u"2024/05/02(木)の件名表示"_s, {}},
        {customer::recentCases({}, {2024, 5, 1}), u"2024/04/24 ～ 2024/05/01 更新"_s, {u"納入"_s}},
        {customer::casesWithText(u"二郎"_s), u"'二郎'を含む件名表示"_s, {u"点検"_s, u"納入"_s}},
        {customer::casesWithText(u"郎修"_s),
         u"'郎修'を含む件名表示"_s,
         {u"修繕"_s}}, // across fields
        {customer::casesWithText(u"き'"_s), u"'き''を含む件名表示"_s, {u"点検"_s}},
    };
    for (const auto& each : expected) {
        EXPECT_EQ(each.filter.caption, each.caption);
        EXPECT_EQ(titlesOf(each.filter), each.titles) << each.caption.toStdString();
    }
}

TEST_F(ListTest, EmphasisesOpenCasesByTheirPlannedDate)
{
    const core::RecordKey owner = addNamed(u"客"_s, u"ｷｬｸ"_s).key;
    for (const QDate planned :
         {QDate(), QDate(2024, 4, 14), QDate(2024, 4, 15), QDate(2024, 4, 16)}) {
        EXPECT_EQ(addCase(file, owner, {clock.today(), u"予定"_s, {}, u"続行"_s, false, planned}),
                  records::SaveResult::Saved);
    }
    EXPECT_EQ(addCase(file, owner, {clock.today(), u"済"_s, {}, u"完了"_s, true, {2024, 4, 14}}),
              records::SaveResult::Saved);
    QList<int> emphasis;
    Settings on;
    on.emphasizePlanned = 1;
    for (const core::ListRow& row : openCaseList(file, customer::allCases(), {}, on)->rows(0, 9))
        emphasis.append(row.emphasis);
    EXPECT_EQ(emphasis,
              (QList<int>{customer::NoEmphasis, customer::PlannedBefore, customer::PlannedToday,
                          customer::PlannedLater, customer::NoEmphasis}));
    EXPECT_EQ(openCaseList(file, customer::allCases(), {}, {})->rows(1, 1).first().emphasis, 0);
}

TEST_F(ListTest, LogsOfACase)
{
    const core::RecordKey owner = addNamed(u"客"_s, u"ｷｬｸ"_s).key;
    const customer::KeptCase one = addCaseOf(owner, u"一"_s);
    const customer::KeptCase two = addCaseOf(owner, u"二"_s);
    EXPECT_EQ(addLog(file, one.key, {{2024, 4, 2}, u"佐藤"_s, u"電話"_s}), records::SaveResult::Saved);
    EXPECT_EQ(addLog(file, one.key, {{2024, 4, 1}, u"鈴木"_s, u"訪問"_s}), records::SaveResult::Saved);
    EXPECT_EQ(addLog(file, two.key, {{2024, 4, 3}, u"鈴木"_s, u"別件"_s}), records::SaveResult::Saved);
    const ListFilter filter = customer::logsOfCase(one.key, u"一"_s);
    EXPECT_EQ(filter.caption, u"一 のログ");
    const auto list = openLogList(file, filter, {}, {});
    EXPECT_EQ(cellsOf(*list, 0), (QStringList{u"2024/04/01(月)"_s, u"2024/04/02(火)"_s}));
    const core::ListRow row = list->rows(0, 1).first();
    EXPECT_EQ(row.cells, (QStringList{u"2024/04/01(月)"_s, u"鈴木"_s, u"訪問"_s}));
    EXPECT_EQ(core::RecordKey::fromText(row.key).id, 2);
}

} // namespace
