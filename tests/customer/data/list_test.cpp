#include "customer/data/case_index.h"
#include "customer/data/customer_index.h"
#include "customer/data/settings.h"
#include "records/data/record_list.h"
#include "records/data/schedule.h"
#include "support/customer/data/customer_test.h"
#include "support/files.h"

#include <QFileInfo>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace customer;
using records::ListFilter;
using records::ListOrder;
using records::Settings;

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
        return cellsOf(*openList(file, caseList(), filter, {}, {}), 3);
    }

    // How many rows of the first page show that they cannot be read.
    int unreadableRows()
    {
        const auto list = openList(file, customer::customerList(), {}, {}, {});
        const QList<core::ListRow> rows = list->rows(0, static_cast<int>(list->count()));
        int unreadable = 0;
        for (const core::ListRow& row : rows)
            unreadable += row.cells.first() == u"（読めない行）" ? 1 : 0;
        if (unreadable == 0 || unreadable == rows.size()) // or the page that leads to all others
            return 0;
        EXPECT_EQ(rows.size(), 100);
        EXPECT_LT(unreadable, 50);
        EXPECT_EQ(
            messages.takeText(),
            u"データを読めませんでした。\r\nファイルの一部が壊れている為、読み込めません。"_s);
        EXPECT_EQ(takeErrors(), QList{storage::ErrorKind::Unreadable});
        list->setPage(2);
        list->rows(0, 100); // is not told again
        EXPECT_TRUE(messages.takeBoxes().isEmpty());
        return unreadable;
    }
};

TEST_F(ListTest, ReadsPagesAndStretchesOfThem)
{
    addCustomers(25);
    Settings set;
    set.set(settings::CustomersShown, 10);
    const auto list = openList(file, customerList(), {}, {}, set);
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

    set.set(settings::CustomersShown, 0); // one page with all rows
    const auto all = openList(file, customerList(), {}, {}, set);
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
    const auto rare = openList(file, customerList(), customersWithText(u"珍"_s), {}, {});
    EXPECT_EQ(rare->count(), 2);
    EXPECT_EQ(cellsOf(*rare, 0), QStringList({u"珍一"_s, u"珍二"_s}));
    const auto common = openList(file, customerList(), customersWithText(u"並"_s), {}, {});
    EXPECT_EQ(common->count(), 100);
    EXPECT_EQ(common->total(), 16384);
}

TEST_F(ListTest, CustomerRowsCarryKeyCellsAndFlag)
{
    records::FieldValues fields = named(u"髙橋"_s, u"ﾊｼｺﾞ"_s);
    fields += records::FieldValues{
        {u"自宅TEL"_s, u"03"_s}, {u"会社TEL"_s, u"06"_s}, {u"E-MAIL"_s, u"a@b"_s}, {u"Y印字"_s, 1}};
    const core::RecordKey key = add(customerTable(), {}, fields).key;
    const core::ListRow row = openList(file, customerList(), {}, {}, {})->rows(0, 1).value(0);
    EXPECT_EQ(row.key, key.toText());
    EXPECT_EQ(row.cells, (QStringList{u"髙橋"_s, u"03"_s, u"06"_s, u"a@b"_s}));
    EXPECT_TRUE(row.checked);
    EXPECT_EQ(countRows(file, customerList()), 1);
}

TEST_F(ListTest, OrdersOfColumnsAndSettings)
{
    const auto clauseOf = [](const records::ListDescription& list,
                             const std::optional<ListOrder>& order, const Settings& set = {}) {
        return listStatement(list, {}, order, set).mid(list.statement.size());
    };
    EXPECT_EQ(clauseOf(customerList(), orderOf(customerList(), 0, false)),
              u" ORDER BY ユーザー.表示名ﾌﾘｶﾞﾅ ,ユーザー.ﾕｰｻﾞｰID");
    EXPECT_EQ(clauseOf(customerList(), orderOf(customerList(), 3, true)),
              u" ORDER BY ユーザー.[E-MAIL] DESC ,ユーザー.ﾕｰｻﾞｰID");
    EXPECT_EQ(clauseOf(caseList(), orderOf(caseList(), 0, true)),
              u" ORDER BY 件名.登録日 DESC ,件名.件名ID");
    EXPECT_EQ(clauseOf(logList(), orderOf(logList(), 1, false)), u" ORDER BY 記録者 ,ログID");
    EXPECT_FALSE(orderOf(records::scheduleList(), 0, false)) << "its columns have no clauses";

    Settings set;
    set.set(settings::CustomerOrder, 1); // 会社TEL
    set.set(settings::CustomerDescending, 1);
    set.set(settings::CaseOrder, 5);
    set.set(settings::LogOrder, 9); // out of range
    EXPECT_EQ(clauseOf(customerList(), {}, set),
              u" ORDER BY ユーザー.会社ＴＥＬ DESC ,ユーザー.ﾕｰｻﾞｰID");
    EXPECT_EQ(columnOf(customerList(), *standingOrder(customerList(), {}, set)), 2);
    EXPECT_EQ(clauseOf(caseList(), {}, set), u" ORDER BY 件名.判定 ,件名.件名ID");
    EXPECT_EQ(clauseOf(logList(), {}, set), u" ORDER BY 登録日 ,ログID");
}

TEST_F(ListTest, CasesOfOneDayStayInNumberOrderWhenDescending)
{
    const core::RecordKey owner = addNamed(u"客"_s, u"ｷｬｸ"_s).key;
    addCaseOf(owner, u"一"_s);
    addCaseOf(owner, u"二"_s);
    clock.set(QDate(2024, 4, 16));
    addCaseOf(owner, u"三"_s);
    const auto list = openList(file, caseList(), {}, orderOf(caseList(), 0, true), {});
    EXPECT_EQ(cellsOf(*list, 3), (QStringList{u"三"_s, u"一"_s, u"二"_s}));
}

TEST_F(ListTest, CaseFilters)
{
    const core::RecordKey first = addNamed(u"一郎"_s, u"ｲﾁ"_s).key;
    const core::RecordKey second = addNamed(u"二郎"_s, u"ｼﾞ"_s).key;
    addCaseOf(first, u"修繕"_s);
    const core::RecordKey planned = addCaseOf(second, u"点検"_s).key;
    EXPECT_EQ(changeRecord(file, caseTable(), planned,
                           {{u"予定日"_s, u"2024/05/01(水)"_s}, {u"備考"_s, u"'50%引き'"_s}}, {}),
              records::SaveResult::Saved);
    clock.set(QDate(2024, 5, 1));
    const core::RecordKey done = addCaseOf(second, u"納入"_s).key;
    EXPECT_EQ(changeRecord(file, caseTable(), done, {{u"判定"_s, u"完了"_s}}, {}),
              records::SaveResult::Saved);
    const Settings set;
    const QList<records::IndexNode> nodes = caseIndex({});
    const auto filterOf = [&](int node) {
        return *nodes.at(node).filter({set, QDate(2024, 5, 1)});
    };

    const struct {
        ListFilter filter;
        QString caption;
        QStringList titles;
    } expected[] = {
        {customer::casesOfCustomer(first, u"一郎"_s), u"一郎 の件名表示"_s, {u"修繕"_s}},
        {customer::casesOfCustomer({0, 1, 1, {}}, u"他"_s), u"他 の件名表示"_s, {}},
        {filterOf(1), u"続行の件名表示"_s, {u"修繕"_s, u"点検"_s}},
        {filterOf(2), u"完了の件名表示"_s, {u"納入"_s}},
        {filterOf(3), u"全ての件名表示"_s, {u"修繕"_s, u"点検"_s, u"納入"_s}},
        {customer::casesOfDay({2024, 5, 1}), u"2024/05/01(水)の件名表示"_s, {u"点検"_s, u"納入"_s}},
        {customer::casesOfDay({2024, 5, 2}), u"2024/05/02(木)の件名表示"_s, {}},
        {filterOf(4), u"2024/04/24 ～ 2024/05/01 更新"_s, {u"納入"_s}},
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
    const std::pair<QString, QString> cases[] = {{u"続行"_s, {}},
                                                 {u"続行"_s, u"2024/04/14(日)"_s},
                                                 {u"続行"_s, u"2024/04/15(月)"_s},
                                                 {u"続行"_s, u"2024/04/16(火)"_s},
                                                 {u"完了"_s, u"2024/04/14(日)"_s}};
    for (const auto& [state, planned] : cases)
        add(caseTable(), {owner}, {{u"判定"_s, state}, {u"予定日"_s, planned}});
    Settings on;
    on.set(settings::EmphasizePlanned, 1);
    QList<int> emphasis;
    for (const core::ListRow& row : openList(file, caseList(), {}, {}, on)->rows(0, 9))
        emphasis.append(row.emphasis);
    EXPECT_EQ(emphasis,
              (QList<int>{NoEmphasis, PlannedBefore, PlannedToday, PlannedLater, NoEmphasis}));
    EXPECT_EQ(openList(file, caseList(), {}, {}, {})->rows(1, 1).first().emphasis, NoEmphasis);
}

TEST_F(ListTest, LogsOfACase)
{
    const core::RecordKey owner = addNamed(u"客"_s, u"ｷｬｸ"_s).key;
    const core::RecordKey one = addCaseOf(owner, u"一"_s).key;
    clock.set(QDate(2024, 4, 2));
    addLogOf(one, u"佐藤"_s, u"電話"_s);
    clock.set(QDate(2024, 4, 1));
    addLogOf(one, u"鈴木"_s, u"訪問"_s);
    addLogOf(addCaseOf(owner, u"二"_s).key, u"鈴木"_s, u"別件"_s);
    const ListFilter filter = logsOfCase(one, u"一"_s);
    EXPECT_EQ(filter.caption, u"一 のログ");
    const auto list = openList(file, logList(), filter, {}, {});
    EXPECT_EQ(cellsOf(*list, 0), (QStringList{u"2024/04/01(月)"_s, u"2024/04/02(火)"_s}));
    const core::ListRow row = list->rows(0, 1).first();
    EXPECT_EQ(row.cells, (QStringList{u"2024/04/01(月)"_s, u"鈴木"_s, u"訪問"_s}));
    EXPECT_EQ(core::RecordKey::fromText(row.key).id, 2);
}

// A page of the file that holds customers and no index is written over.
TEST_F(ListTest, TellsOnceWhatItCannotReadAndShowsTheRest)
{
    constexpr int Customers = 300;
    for (int i = 1; i <= Customers; ++i) {
        const QString name = QString::number(i).rightJustified(3, u'0') + QString(40, u'客');
        execute(u"INSERT INTO ユーザー (ﾕｰｻﾞｰ識別ID, ﾕｰｻﾞｰID, 表示名, 表示名ﾌﾘｶﾞﾅ) VALUES (0, "_s
                + QString::number(i) + u", '"_s + name + u"', '"_s + name + u"')"_s);
    }
    file.connection.close();
    constexpr qint64 Page = 4096;
    const qint64 pages = QFileInfo(path()).size() / Page;
    int damaged = 0;
    for (qint64 page = 3; page < pages && damaged == 0; ++page) {
        SCOPED_TRACE(page);
        const QByteArray sound = overwrite(path(), page * Page, QByteArray(Page, 'x'));
        if (open())
            damaged = unreadableRows();
        messages.takeBoxes(); // damage elsewhere: in an index, or in what is read when it is opened
        file.connection.close();
        file.connection.clearErrors();
        ASSERT_EQ(overwrite(path(), page * Page, sound).size(), Page);
    }
    EXPECT_GT(damaged, 0);
}

} // namespace
