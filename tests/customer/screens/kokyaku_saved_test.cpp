#include "records/screens/edit_form.h"
#include "support/customer/screens/main_screen_test.h"
#include "ui/list_view.h"

#include <QAction>
#include <QCheckBox>
#include <QInputMethodEvent>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

// What was saved is seen, and the next command works on it.
class KokyakuSavedTest : public MainScreenTest {
protected:
    void SetUp() override
    {
        MainScreenTest::SetUp();
        for (const QString& name : {u"ｱｵｷ"_s, u"ｲﾄｳ"_s, u"ｶﾄｳ"_s, u"ｻﾄｳ"_s})
            owners.append(addNamed(name, name).key);
        addCaseOf(owners.first(), u"点検"_s);
    }
    QString selected(int number) { return list(number).currentIndex().data().toString(); }
    QString status() { return control<QLabel>("StatusMessage").text(); }
    void saveCustomer(const QString& name)
    {
        save({{"txtkokyaku_0", name}, {"txtkokyaku_1", name}});
    }
    void type(const QString& letters)
    {
        QInputMethodEvent typed;
        typed.setCommitString(letters);
        QCoreApplication::sendEvent(&list(1), &typed);
    }
    void setPageSize(int rows)
    {
        execute(u"UPDATE 設定 SET 顧客表示数 = "_s + QString::number(rows)
                + u" WHERE 設定ID = 1"_s);
    }

    QList<core::RecordKey> owners;
};

// Walked twice: the second time is where a list that fell behind shows.
TEST_F(KokyakuSavedTest, TheNextCommandWorksOnWhatWasSaved)
{
    openScreen();
    chooseRow(1, 0);
    for (const QString& name : {u"ﾜﾀﾞ"_s, u"ｱｻﾉ"_s}) {
        trigger("ToolKyakuAdd");
        saveCustomer(name);
        EXPECT_EQ(selected(1), name);
        EXPECT_EQ(status(), u"顧客「"_s + name + u"」を追加しました。"_s);
        EXPECT_EQ(cells(2, 3), QStringList());
        trigger("ToolKenAdd");
        EXPECT_EQ(form().windowTitle(), u"【 "_s + name + u" 】件名追加"_s);
        save({{"kenmei1", name + u"の点検"_s}});
        EXPECT_EQ(cells(2, 3), QStringList({name + u"の点検"_s}));
        trigger("ToolRogAdd");
        save({{"Rrogu", u"受付"_s}});
        EXPECT_EQ(cells(3, 2), QStringList({u"受付"_s}));
        EXPECT_EQ(selected(1), name);
    }
    EXPECT_EQ(column(u"SELECT 件名 FROM 件名 ORDER BY 件名更新ID"_s),
              QStringList({u"点検"_s, u"ﾜﾀﾞの点検"_s, u"ｱｻﾉの点検"_s}));
}

TEST_F(KokyakuSavedTest, FollowsARecordToItsPageAndKeepsTheListsBelow)
{
    setPageSize(2);
    openScreen();
    chooseRow(1, 0);
    trigger("MenuUserListKyakuEdit");
    save({{"txtkokyaku_0", u"ﾝ"_s}});
    EXPECT_EQ(cells(1, 0), QStringList({u"ｻﾄｳ"_s, u"ｱｵｷ"_s}));
    EXPECT_EQ(selected(1), u"ｱｵｷ"_s);
    EXPECT_EQ(cells(2, 3), QStringList({u"点検"_s}));
    EXPECT_EQ(status(), u"顧客「ｱｵｷ」を変更しました。"_s);
}

TEST_F(KokyakuSavedTest, OffersToGoToWhatTheListsDoNotShow)
{
    openScreen();
    choose({u"か行"_s});
    trigger("ToolKyakuAdd");
    saveCustomer(u"ﾜﾀﾞ"_s);
    EXPECT_EQ(cells(1, 0), QStringList({u"ｶﾄｳ"_s}));
    EXPECT_EQ(status(), u"顧客「ﾜﾀﾞ」を追加しました。今の一覧にはありません。"_s);
    trigger("MenuGoOn");
    EXPECT_EQ(selected(1), u"ﾜﾀﾞ"_s);
    EXPECT_EQ(cells(1, 0).size(), 5);
    EXPECT_FALSE(control<QAction>("MenuGoOn").isEnabled());
}

TEST_F(KokyakuSavedTest, DelDeletesTheOneRowThatIsSelected)
{
    openScreen();
    chooseRow(1, 1);
    QTest::keyClick(&list(1), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&list(1), Qt::Key_Delete);
    EXPECT_EQ(messages.takeText(), u"削除は１件ずつ行います。１件だけを選択して下さい。"_s);
    EXPECT_FALSE(control<QAction>("MenuUserListKyakuDelete").isEnabled());
    chooseRow(1, 1);
    messages.willAnswer(core::Answer::No);
    QTest::keyClick(&list(1), Qt::Key_Delete);
    EXPECT_EQ(cells(1, 0).size(), 4);
    messages.willAnswer(core::Answer::Yes);
    QTest::keyClick(&list(1), Qt::Key_Delete);
    EXPECT_EQ(messages.takeBoxes().size(), 2);
    EXPECT_EQ(cells(1, 0), QStringList({u"ｱｵｷ"_s, u"ｶﾄｳ"_s, u"ｻﾄｳ"_s}));
    EXPECT_EQ(status(), u"顧客「ｲﾄｳ」を削除しました。"_s);
}

TEST_F(KokyakuSavedTest, LettersAndKeysReachEveryPage)
{
    addNamed(u"佐々木"_s, u"ササキ"_s);
    setPageSize(2);
    openScreen();
    type(u"さ"_s);
    type(u"さ"_s);
    EXPECT_EQ(selected(1), u"佐々木"_s);
    QTest::qWait(1100); // a new text begins
    type(u"佐々"_s);
    EXPECT_EQ(selected(1), u"佐々木"_s);
    EXPECT_EQ(status(), u"「佐々」へ移動しました。"_s);
    QTest::keyClick(&list(1), Qt::Key_Up);
    EXPECT_EQ(selected(1), u"ｶﾄｳ"_s);
    QTest::keyClick(&list(1), Qt::Key_Up);
    EXPECT_EQ(selected(1), u"ｲﾄｳ"_s); // the last of the page before
    QTest::keyClick(&list(1), Qt::Key_Down);
    EXPECT_EQ(selected(1), u"ｶﾄｳ"_s);
    QTest::keyClick(&list(1), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(selected(1), u"ｻﾄｳ"_s);
    QTest::keyClick(&list(1), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(selected(1), u"ｻﾄｳ"_s);
    choose({u"か行"_s});
    type(u"%"_s);
    EXPECT_EQ(status(), u"「%」で始まる行はありません。"_s);
}

TEST_F(KokyakuSavedTest, SpaceTicksAllSelectedRowsAfterOneQuestion)
{
    openScreen();
    chooseRow(1, 0);
    list(1).selectAll();
    for (const core::RecordKey& each : {owners.at(0), owners.at(1)})
        change(customer::customerTable(), each, {});
    execute(u"DELETE FROM ユーザー WHERE ﾕｰｻﾞｰ更新ID = "_s
            + QString::number(owners.at(2).updateId));
    messages.willAnswer(core::Answer::No);
    QTest::keyClick(&list(1), Qt::Key_Space);
    EXPECT_EQ(messages.takeBoxes().size(), 2);
    EXPECT_EQ(column(u"SELECT Y印字 FROM ユーザー"_s), QStringList({{}, {}, {}}));
    list(1).selectAll();
    QTest::keyClick(&list(1), Qt::Key_Space);
    EXPECT_EQ(column(u"SELECT Y印字 FROM ユーザー"_s), QStringList({u"1"_s, u"1"_s, u"1"_s}));
    EXPECT_EQ(list(1).selectedRows(), 3);
    EXPECT_EQ(status(), u"3 件の印を変えました。"_s);
}

} // namespace
