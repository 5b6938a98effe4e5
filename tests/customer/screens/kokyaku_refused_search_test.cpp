#include "support/customer/screens/main_screen_test.h"
#include "ui/list_view.h"

#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

// A stored search that the engine refuses, as it stands when somebody mistyped its pattern.
class RefusedSearchTest : public MainScreenTest {
protected:
    void SetUp() override
    {
        MainScreenTest::SetUp();
        addNamed(u"赤木商店"_s, u"ｱｶｷﾞ"_s);
        addCaseOf(addNamed(u"加藤 花子"_s, u"カトウ"_s).key, u"点検"_s);
        execute(
            u"INSERT INTO カスタム検索 (カスタム検索識別ID, 文字列, 順位) VALUES (0, '[ｱ', 1)"_s);
    }
    void expectRefusal()
    {
        EXPECT_TRUE(messages.takeText().startsWith(u"データを読めませんでした。"_s));
        screenFile->connection.clearErrors();
    }
};

TEST_F(RefusedSearchTest, LeavesTheListTheSelectionAndTheListsBelow)
{
    openScreen();
    choose({u"か行"_s});
    chooseRow(1, 0);
    auto& tree = control<QTreeWidget>("TreeView1");
    for (int time = 0; time < 2; ++time) {
        tree.setCurrentItem(tree.topLevelItem(0)->child(13)->child(0));
        expectRefusal();
        // Refreshed, it is not told again.
        if (time == 0)
            QTest::keyClick(&tree, Qt::Key_F5);
        else
            screen->refillLists();
        EXPECT_TRUE(messages.takeBoxes().isEmpty());
        EXPECT_EQ(cells(1, 0), QStringList({u"加藤 花子"_s}));
        EXPECT_EQ(caption("lblKokya"), u"か行"_s);
        EXPECT_EQ(tree.currentItem()->text(0), u"か行"_s);
        EXPECT_EQ(list(1).currentIndex().row(), 0);
        EXPECT_EQ(cells(2, 3), QStringList({u"点検"_s}));
    }
}

TEST_F(RefusedSearchTest, AScreenThatWouldOpenOnItShowsAllCustomers)
{
    execute(u"UPDATE 設定 SET 前回表示 = 0, 顧客表示方法 = 114 WHERE 設定ID = 1"_s);
    openScreen();
    expectRefusal();
    EXPECT_EQ(caption("lblKokya"), u"顧客管理"_s);
    EXPECT_EQ(cells(1, 0), QStringList({u"赤木商店"_s, u"加藤 花子"_s}));
}

} // namespace
