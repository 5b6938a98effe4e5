#include "customer/data/shortcuts.h"
#include "customer/screens/johokokyaku.h"
#include "records/screens/edit_form.h"
#include "support/customer/screens/main_screen_test.h"
#include "ui/list_view.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

// A day at the customer desk: what the main screen does with its records.
class KokyakuDeskTest : public MainScreenTest {
protected:
    void SetUp() override
    {
        MainScreenTest::SetUp();
        owner = addNamed(u"加藤 花子"_s, u"カトウ"_s).key;
        ofCase = addCaseOf(owner, u"点検"_s).key;
        addLogOf(ofCase, u"佐藤"_s, u"受付"_s);
    }

    void set(const QString& assignment)
    {
        execute(u"UPDATE 設定 SET "_s + assignment + u" WHERE 設定ID = 1"_s);
    }
    core::RecordKey owner;
    core::RecordKey ofCase;
};

TEST_F(KokyakuDeskTest, CheckBoxesWriteTheirFlagsAndTheNextEditAsksNothing)
{
    openScreen();
    chooseRow(1, 0);
    QTest::keyClick(&list(1), Qt::Key_Space);
    EXPECT_EQ(valueOf(u"SELECT Y印字 FROM ユーザー"_s), u"1"_s);
    QTest::keyClick(&list(1), Qt::Key_Return);
    EXPECT_EQ(form().windowTitle(), u"顧客情報を編集"_s);
    form().findChild<QLineEdit*>(u"txtkokyaku_4"_s)->setText(u"03-1234"_s);
    form().findChild<QPushButton*>(u"Command1"_s)->click();
    EXPECT_EQ(cells(1, 1), QStringList({u"03-1234"_s}));

    chooseRow(2, 0);
    QTest::keyClick(&list(2), Qt::Key_Space);
    EXPECT_EQ(valueOf(u"SELECT K印字 FROM 件名"_s), u"1"_s);
}

TEST_F(KokyakuDeskTest, TheActionsOpenTheirScreensUnderTheirCaptions)
{
    openScreen();
    EXPECT_FALSE(control<QAction>("ToolKenAdd").isEnabled());
    chooseRow(1, 0);
    chooseRow(2, 0);
    chooseRow(3, 0);
    const std::pair<const char*, QString> captions[] = {
        {"ToolKyakuAdd", u"新しい顧客を追加する"_s},
        {"MenuUserListKyakuSansyoAdd", u"【 加藤 花子 】参照追加"_s},
        {"ToolKenAdd", u"【 加藤 花子 】件名追加"_s},
        {"MenuKenListKenEdit", u" 件名情報を編集"_s},
        {"MenuKenListRogAdd", u"【 点検 】ログ追加"_s},
        {"MenuRogListAdd", u"【 点検 】ログを追加"_s},
        {"MenuRogListEdit", u"ログ情報を編集"_s},
        {"ToolYoteiAdd", u"【 2024/04/15(月) 】予定追加"_s},
    };
    for (const auto& [action, caption] : captions) {
        trigger(action);
        EXPECT_EQ(form().windowTitle(), caption);
        form().close();
    }
    trigger("MenuUserListKyakuSansyoAdd");
    EXPECT_EQ(form().findChild<QLineEdit*>(u"txtkokyaku_1"_s)->text(), u"加藤 花子"_s);
    form().findChild<QPushButton*>(u"Command1"_s)->click();
    EXPECT_EQ(cells(1, 0), QStringList({u"加藤 花子"_s, u"加藤 花子"_s}));
}

TEST_F(KokyakuDeskTest, ALogWrittenAfterItsCaseWasSavedIsShown)
{
    openScreen();
    chooseRow(1, 0);
    chooseRow(2, 0);
    trigger("MenuKenListKenEdit");
    form().findChild<QPushButton*>(u"Command1"_s)->click();
    EXPECT_EQ(cells(3, 2), QStringList({u"受付"_s})); // of the case that was saved
    trigger("MenuRogListAdd");
    form().findChild<QPlainTextEdit*>(u"Rrogu"_s)->setPlainText(u"訪問"_s);
    form().findChild<QPushButton*>(u"Command1"_s)->click();
    EXPECT_EQ(cells(3, 2), QStringList({u"受付"_s, u"訪問"_s}));
    EXPECT_EQ(caption("lblRog"), u"点検 のログ"_s);
}

TEST_F(KokyakuDeskTest, DeletingACustomerLeavesNothingSelectedAndKeepsTheDetailSetting)
{
    set(u"顧客詳細表示 = 1"_s);
    openScreen();
    chooseRow(1, 0);
    const auto& detail = *screen->findChild<customer::johokokyaku*>();
    EXPECT_TRUE(QTest::qWaitFor([&detail] { return detail.isVisible(); }));
    trigger("MenuUserListKyakuEdit");
    messages.willAnswer(core::Answer::Yes);
    form().findChild<QPushButton*>(u"Command2"_s)->click();
    messages.takeBoxes();
    expectCounters("cntKokya", u"合計:0 現在:0 最大:0"_s);
    expectCounters("cntKen", u"合計:0 現在:0 最大:0"_s);
    EXPECT_FALSE(detail.isVisible());
    EXPECT_EQ(valueOf(u"SELECT 顧客詳細表示 FROM 設定"_s), u"1"_s);
    EXPECT_EQ(column(u"SELECT 件名 FROM 件名"_s), QStringList());
}

TEST_F(KokyakuDeskTest, DeletingACaseGoesBackToTheSingleOnes)
{
    openScreen();
    chooseRow(1, 0);
    chooseRow(2, 0);
    trigger("MenuKenListKenEdit");
    messages.willAnswer(core::Answer::Yes);
    form().findChild<QPushButton*>(u"Command2"_s)->click();
    EXPECT_EQ(messages.takeText(), u"削除しますか？"_s);
    EXPECT_EQ(caption("lblKen"), u"件名表示"_s);
    expectCounters("cntKen", u"合計:0 現在:0 最大:0"_s);
    expectCounters("cntRog", u"合計:0 現在:0 最大:0"_s);
    EXPECT_EQ(column(u"SELECT Rログ FROM ログ"_s), QStringList());
}

TEST_F(KokyakuDeskTest, KeepsFilesOfACaseAndNeverTouchesThem)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"見積 1.txt"_s);
    openScreen();
    trigger("MenuKanrneHyouzi");
    EXPECT_EQ(messages.takeText(), u"件名が選択されていません。"_s);
    control<QPushButton>("Command6").click();
    EXPECT_EQ(messages.takeText(), u"件名が選択されていません。"_s);

    chooseRow(1, 0);
    chooseRow(2, 0);
    trigger("MenuKanrneHyouzi");
    EXPECT_EQ(control<QTabWidget>("SSTab1").currentIndex(), 1);
    EXPECT_EQ(caption("lblKanren"), u"【 点検 】関連ﾌｧｲﾙ表示"_s);
    files.chosen = path;
    control<QPushButton>("Command6").click();
    EXPECT_EQ(files.filters, QStringList({u"All(*.*)|*.*"_s}));
    EXPECT_EQ(cells(7, 0), QStringList({u"見積 1.txt"_s}));
    EXPECT_EQ(valueOf(u"SELECT 場所 FROM 件名関連ファイル"_s), path);

    chooseRow(7, 0);
    const std::pair<core::Opened, QString> outcomes[] = {
        {core::Opened::Missing,
         u"ファイルが見つかりません。\r\n"_s + path
             + u"\r\n場所が変わっていないか確認して下さい。"_s},
        {core::Opened::NoProgram,
         u"ファイルを開けませんでした。\r\n"_s + path
             + u"\r\nこの種類のファイルを開くプログラムがありません。"_s}};
    for (const auto& [outcome, message] : outcomes) {
        opener.outcome = outcome;
        QTest::keyClick(&list(7), Qt::Key_Return);
        EXPECT_EQ(messages.takeText(), message);
    }
    EXPECT_EQ(opener.opened, QStringList({path, path}));

    messages.willAnswer(core::Answer::Yes);
    control<QPushButton>("Command7").click();
    EXPECT_EQ(messages.takeText(), u"見積 1.txt を削除しますか？"_s);
    EXPECT_EQ(cells(7, 0), QStringList());
}

TEST_F(KokyakuDeskTest, CasesAreFoundByDayByTextAndFromTheirLog)
{
    add(customer::caseTable(), {owner},
        {{u"件名"_s, u"見積"_s}, {u"判定"_s, u"完了"_s}, {u"登録日"_s, u"2024/01/01(月)"_s}});
    openScreen();
    const auto pick = [this](const QString& name) {
        for (QAction* const each : screen->findChildren<QAction*>()) {
            if (each->text().startsWith(name)) {
                each->trigger();
                return;
            }
        }
        ADD_FAILURE() << "no menu entry " << name.toStdString();
    };
    pick(u"暦の日付の件名表示"_s);
    EXPECT_EQ(cells(2, 3), QStringList({u"点検"_s}));
    EXPECT_EQ(caption("lblKen"), u"2024/04/15(月)の件名表示"_s);
    messages.willType(u"見積"_s);
    pick(u"文字を含む件名表示"_s);
    messages.takeBoxes();
    EXPECT_EQ(cells(2, 3), QStringList({u"見積"_s}));
    EXPECT_EQ(caption("lblKen"), u"'見積'を含む件名表示"_s);
    // A case of one customer, while another is selected above: the new one is for the case's.
    addNamed(u"木村"_s, u"キムラ"_s);
    QTest::keyClick(&list(1), Qt::Key_F5);
    chooseRow(1, 1);
    pick(u"全ての件名表示"_s);
    EXPECT_EQ(cells(2, 3).size(), 2);
    chooseRow(2, 0);
    trigger("MenuKenListKenAdd");
    EXPECT_EQ(form().windowTitle(), u"【 加藤 花子 】件名追加"_s);
    form().close();

    chooseRow(1, 0);
    chooseRow(2, cells(2, 3).indexOf(u"点検"_s) == 0 ? 0 : 1);
    chooseRow(3, 0);
    trigger("MenuRogKenHyouzi");
    EXPECT_EQ(cells(2, 3), QStringList({u"点検"_s}));
    EXPECT_EQ(caption("lblKen"), u"件名表示"_s);
}

TEST_F(KokyakuDeskTest, WhatTheCaseListShowedLastComesBack)
{
    addCaseOf(owner, u"見積"_s);
    const auto pick = [this](const QString& name) {
        for (QAction* const each : screen->findChildren<QAction*>()) {
            if (each->text().startsWith(name))
                return each->trigger();
        }
    };
    for (const auto& [view, shown] :
         {std::pair{u"文字を含む件名表示"_s, u"'見積'を含む件名表示"_s},
          std::pair{u"完了の件名表示"_s, u"完了の件名表示"_s},
          std::pair{u"暦の日付の件名表示"_s, u"2024/04/15(月)の件名表示"_s}}) {
        openScreen();
        if (view.startsWith(u"文字"_s))
            messages.willType(u"見積"_s);
        pick(view);
        closeScreen();
        openScreen();
        EXPECT_EQ(caption("lblKen"), shown);
        closeScreen();
    }
    set(u"前回表示 = 1"_s);
    openScreen();
    EXPECT_EQ(caption("lblKen"), u"件名表示"_s);
    messages.takeBoxes();
}

} // namespace
