#include "support/customer/screens/main_screen_test.h"
#include "ui/list_view.h"

#include <QAction>
#include <QLabel>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSplitter>
#include <QToolBar>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

class KokyakuTest : public MainScreenTest {
protected:
    void SetUp() override
    {
        MainScreenTest::SetUp();
        addNamed(u"赤木商店"_s, u"ｱｶｷﾞ"_s);
        addNamed(u"加藤 花子"_s, u"カトウ"_s);
        addNamed(u"木村"_s, u"きむら"_s);
        addNamed(u"XYZ 商会"_s, u"xyz"_s);
    }

    void setPageSize(const QString& rows)
    {
        execute(u"UPDATE 設定 SET 顧客表示数 = "_s + rows + u" WHERE 設定ID = 1"_s);
    }
};

TEST_F(KokyakuTest, OpensOnAllCustomersInKanaOrder)
{
    openScreen();
    EXPECT_EQ(screen->windowTitle(), u"見本 - コルヴァン３"_s);
    EXPECT_EQ(cells(1, 0), QStringList({u"XYZ 商会"_s, u"赤木商店"_s, u"加藤 花子"_s, u"木村"_s}));
    EXPECT_EQ(caption("lblKokya"), u"顧客管理"_s);
    expectCounters("cntKokya", u"合計:4 現在:0 最大:4"_s);
    expectCounters("cntKen", u"合計:0 現在:0 最大:0"_s);
    EXPECT_EQ(control<QLabel>("StatusFile").text(), u"見本"_s);
    EXPECT_EQ(control<QLabel>("StatusMode").text(), u"共有"_s);

    QStringList tips;
    for (const QAction* const action : control<QToolBar>("Toolbar1").actions()) {
        if (!action->toolTip().isEmpty())
            tips.append(action->toolTip());
    }
    EXPECT_EQ(tips,
              QStringList({u"新しい顧客を追加する"_s, u" 件名を追加"_s, u" ログを追加"_s,
                           u"新しい予定を追加する"_s, u"ヘルプ"_s}));
}

TEST_F(KokyakuTest, TheIndexChoosesCustomersByMouseAndByKeys)
{
    openScreen();
    choose({u"か行"_s});
    EXPECT_EQ(cells(1, 0), QStringList({u"加藤 花子"_s, u"木村"_s}));
    expectCounters("cntKokya", u"合計:4 現在:0 最大:2"_s);
    choose({u"か行"_s, u"き"_s});
    EXPECT_EQ(cells(1, 0), QStringList({u"木村"_s}));
    choose({u"ＡＢＣ"_s, u"VWX"_s});
    EXPECT_EQ(cells(1, 0), QStringList({u"XYZ 商会"_s}));
    choose({u"他行"_s});
    EXPECT_EQ(cells(1, 0), QStringList());

    QTest::keyClick(&control<QTreeWidget>("TreeView1"), Qt::Key_Home);
    EXPECT_EQ(cells(1, 0).size(), 4);
    QTest::keyClick(&control<QTreeWidget>("TreeView1"), Qt::Key_Down);
    EXPECT_EQ(cells(1, 0), QStringList({u"赤木商店"_s}));
    EXPECT_EQ(caption("lblKokya"), u"あ行"_s);
}

TEST_F(KokyakuTest, RecentCustomersKeepTheirOwnOrderUntilAHeaderIsClicked)
{
    clock.advanceMsecs(60'000);
    addNamed(u"新規"_s, u"ﾝﾝ"_s);
    openScreen();
    choose({u"最近更新"_s});
    EXPECT_EQ(caption("lblKokya"), u"2024/04/08 ～ 2024/04/15 更新"_s);
    EXPECT_EQ(cells(1, 0).value(0), u"新規"_s);
    clickHeader(1, 0);
    EXPECT_EQ(cells(1, 0).value(4), u"新規"_s);
    clickHeader(1, 0);
    EXPECT_EQ(cells(1, 0).value(0), u"新規"_s);
    EXPECT_EQ(cells(1, 0).value(4), u"XYZ 商会"_s);

    // On the next day, and by a click on the node that is chosen already, the search runs anew.
    chooseRow(1, 2);
    const QString selected = list(1).currentKey();
    QSignalSpy read(list(1).model(), &QAbstractItemModel::modelReset);
    clock.advanceMsecs(86'400'000);
    QTest::keyClick(&control<QTreeWidget>("TreeView1"), Qt::Key_F5);
    EXPECT_EQ(caption("lblKokya"), u"2024/04/09 ～ 2024/04/16 更新"_s);
    EXPECT_EQ(list(1).currentKey(), selected);
    EXPECT_EQ(read.size(), 1);
    addNamed(u"翌日"_s, u"ﾝﾝﾝ"_s);
    choose({u"最近更新"_s});
    EXPECT_EQ(cells(1, 0).value(0), u"翌日"_s);
}

TEST_F(KokyakuTest, OpensOnTheLastViewWhereTheSettingsSaySo)
{
    const auto reopen = [this](const QString& setting) {
        execute(u"UPDATE 設定 SET "_s + setting + u" WHERE 設定ID = 1"_s);
        openScreen();
        const QString shown = caption("lblKokya");
        choose({u"か行"_s});
        closeScreen();
        return shown;
    };
    EXPECT_EQ(reopen(u"前回表示 = 0"_s), u"顧客管理"_s);
    EXPECT_EQ(reopen(u"前回表示 = 0"_s), u"か行"_s);
    EXPECT_EQ(reopen(u"前回表示 = 1"_s), u"顧客管理"_s);
    EXPECT_EQ(reopen(u"前回表示 = 0, 顧客表示方法 = 99"_s), u"顧客管理"_s);
}

TEST_F(KokyakuTest, StoredSearchesAreReadAgain)
{
    openScreen();
    execute(u"INSERT INTO カスタム検索 (カスタム検索識別ID, 文字列, 順位) VALUES (0, '花子', 1)"_s);
    auto& tree = control<QTreeWidget>("TreeView1");
    QTest::keyClick(&tree, Qt::Key_F5);
    const QStringList before = cells(1, 0);
    choose({u"ｶｽﾀﾑ検索"_s});
    EXPECT_EQ(cells(1, 0), before) << "the folder itself searches nothing";
    choose({u"ｶｽﾀﾑ検索"_s, u"花子"_s});
    EXPECT_EQ(caption("lblKokya"), u"'花子'を含む表示"_s);
    EXPECT_EQ(cells(1, 0), QStringList({u"加藤 花子"_s}));
    QTest::keyClick(&tree, Qt::Key_F5);
    EXPECT_EQ(tree.currentItem()->text(0), u"花子"_s);
    EXPECT_EQ(cells(1, 0), QStringList({u"加藤 花子"_s}));
}

TEST_F(KokyakuTest, PagesHaveTheRowsThatTheSettingsSay)
{
    setPageSize(u"3"_s);
    openScreen();
    expectCounters("cntKokya", u"合計:4 現在:0 最大:4"_s);
    auto& pages = control<QScrollBar>("HScroll1");
    EXPECT_EQ(pages.maximum(), 2);
    pages.setValue(2);
    EXPECT_EQ(cells(1, 0), QStringList({u"木村"_s}));
    chooseRow(1, 0);
    expectCounters("cntKokya", u"合計:4 現在:4 最大:4"_s);
    closeScreen();

    for (const QString& all : {u"0"_s, u"Null"_s}) {
        setPageSize(all);
        openScreen();
        EXPECT_EQ(cells(1, 0).size(), 4) << all.toStdString();
        EXPECT_FALSE(control<QScrollBar>("HScroll1").isEnabled());
        closeScreen();
    }
}

TEST_F(KokyakuTest, CustomersLeadToCasesAndCasesToLogs)
{
    const core::RecordKey owner = addNamed(u"三木"_s, u"ﾐｷ"_s).key;
    const core::RecordKey opened = addCaseOf(owner, u"見積り"_s).key;
    addCaseOf(owner, u"納品"_s);
    addLogOf(opened, u"佐藤"_s, u"電話あり\r\n折り返す"_s);
    openScreen();
    choose({u"ま行"_s});
    EXPECT_EQ(cells(2, 3), QStringList());
    chooseRow(1, 0);
    EXPECT_EQ(caption("lblKen"), u"三木 の件名表示"_s);
    EXPECT_EQ(cells(2, 3), QStringList({u"見積り"_s, u"納品"_s}));
    expectCounters("cntRog", u"合計:0 現在:0 最大:0"_s);
    chooseRow(2, 0);
    EXPECT_EQ(caption("lblRog"), u"見積り のログ"_s);
    EXPECT_EQ(cells(3, 2), QStringList({u"電話あり 折り返す"_s}));
    expectCounters("cntRog", u"合計:1 現在:0 最大:1"_s);

    auto& views = control<QTreeWidget>("TreeView2");
    views.setCurrentItem(views.topLevelItem(2));
    EXPECT_EQ(caption("lblKen"), u"完了の件名表示"_s);
    EXPECT_EQ(cells(2, 3), QStringList());
    expectCounters("cntRog", u"合計:0 現在:0 最大:0"_s); // no case is chosen any more
    views.setCurrentItem(views.topLevelItem(0));
    EXPECT_EQ(cells(2, 3).size(), 2);
    choose({u"あ行"_s});
    EXPECT_EQ(caption("lblKen"), u"件名表示"_s);
    expectCounters("cntKen", u"合計:0 現在:0 最大:0"_s);
}

TEST_F(KokyakuTest, RefilledListsCarryFreshKeys)
{
    openScreen();
    chooseRow(1, 2);
    const core::RecordKey shown = core::RecordKey::fromText(list(1).currentKey());
    change(customer::customerTable(), shown, {{u"自宅TEL"_s, u"03-1234-5678"_s}});

    screen->refillLists();
    EXPECT_EQ(cells(1, 1).value(2), u"03-1234-5678"_s);
    const core::RecordKey now = core::RecordKey::fromText(list(1).currentKey());
    EXPECT_EQ(now, fresh(customer::customerTable(), shown).key);
    EXPECT_NE(now.stamp, shown.stamp);
    EXPECT_TRUE(list(1).selectionModel()->isRowSelected(2, {}));
}

// What hangs on the selected record stays when the list is put in another order.
TEST_F(KokyakuTest, SortingTurnsToTheSelectedRecord)
{
    const core::RecordKey owner = addNamed(u"三木"_s, u"ﾐｷ"_s).key;
    addCaseOf(owner, u"見積り"_s);
    setPageSize(u"2"_s);
    openScreen();
    expectCounters("cntKokya", u"合計:5 現在:0 最大:5"_s);
    control<QScrollBar>("HScroll1").setValue(3);
    chooseRow(1, 0);
    ASSERT_EQ(core::RecordKey::fromText(list(1).currentKey()).id, owner.id);
    chooseRow(2, 0);
    for (int time = 0; time < 2; ++time) {
        clickHeader(1, 0);
        EXPECT_EQ(core::RecordKey::fromText(list(1).currentKey()).id, owner.id);
        EXPECT_EQ(cells(2, 3), QStringList({u"見積り"_s}));
        EXPECT_FALSE(list(2).currentKey().isEmpty());
    }
    EXPECT_TRUE(cells(1, 0).contains(u"三木"_s));
    expectCounters("cntKokya", u"合計:5 現在:1 最大:5"_s);
    const auto& pages = control<QScrollBar>("HScroll1");
    EXPECT_TRUE(QTest::qWaitFor([&pages] { return pages.value() == 1; }));
}

TEST_F(KokyakuTest, TheNodeChosenLastComesBackWithItsChildAndItsSearch)
{
    execute(u"INSERT INTO カスタム検索 (カスタム検索識別ID, 文字列, 順位) VALUES (0, '花子', 1)"_s);
    for (const auto& [path, shown] :
         {std::pair{QStringList{u"か行"_s, u"き"_s}, u"き"_s},
          std::pair{QStringList{u"ｶｽﾀﾑ検索"_s, u"花子"_s}, u"'花子'を含む表示"_s},
          std::pair{QStringList{u"ＡＢＣ"_s}, u"ＡＢＣ"_s}}) {
        openScreen();
        choose(path);
        closeScreen();
        openScreen();
        EXPECT_EQ(caption("lblKokya"), shown);
        closeScreen();
    }
    execute(u"DELETE FROM カスタム検索"_s);
    execute(u"UPDATE 設定 SET 顧客表示方法 = 114 WHERE 設定ID = 1"_s); // a search that is gone
    openScreen();
    EXPECT_EQ(caption("lblKokya"), u"顧客管理"_s);
}

TEST_F(KokyakuTest, KeysWalkThroughThePanes)
{
    openScreen();
    auto* const tree = &control<QTreeWidget>("TreeView1");
    tree->setFocus();
    const QList<QWidget*> walk{&list(1), &control<QTreeWidget>("TreeView2"), &list(2), &list(3)};
    for (QWidget* const pane : walk) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6);
        EXPECT_EQ(QApplication::focusWidget(), pane);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), &list(2));
    QTest::keyClick(screen.get(), Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), &list(1));
    QTest::keyClick(screen.get(), Qt::Key_F1);
    EXPECT_EQ(opener.opened, QStringList({shared.HelpFilePath}));
}

} // namespace
