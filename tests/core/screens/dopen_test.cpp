#include "core/screens/dopen.h"

#include "support/core/data/core_test.h"
#include "support/core/screens/screen_doubles.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using core::DataKind;
using core::Screen;
using storage::Mode;
using testing::ElementsAre;
using testing::IsEmpty;
using Box = ScriptedMessages::Box;
using Call = RecordedFileOpener::Call;

namespace {

class Chooser : public CoreTest {
protected:
    void SetUp() override
    {
        openFolder();
        shared.AppTitle = u"コルヴァン３"_s;
        add(DataKind::Customer, u"乙"_s, u"秘密"_s);
        add(DataKind::Customer, u"甲"_s);
        add(DataKind::Repair, u"修理"_s);
    }

    void show(DataKind kind)
    {
        chooser = std::make_unique<core::dopen>(shared, flow, opener);
        chooser->prepare(kind);
        chooser->markOpenedFromMenu();
        chooser->show();
        list = chooser->findChild<QTreeWidget*>(u"ListView1"_s);
    }

    void choose(const QString& name)
    {
        list->setCurrentItem(list->findItems(name, Qt::MatchExactly).value(0));
        QTest::mouseClick(chooser->findChild<QPushButton*>(u"Command1"_s), Qt::LeftButton);
    }

    // The texts of the notices that are showing; closes them.
    QStringList takeNotices()
    {
        QStringList texts;
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->objectName() == u"info" && window->isVisible()) {
                texts.append(window->findChild<QLabel*>(u"Label1"_s)->text());
                window->close();
            }
        }
        return texts;
    }

    RecordedFlow flow;
    RecordedFileOpener opener;
    std::unique_ptr<core::dopen> chooser;
    QTreeWidget* list = nullptr;
};

} // namespace

TEST_F(Chooser, ListsTheKindThatTheMenuChose)
{
    show(DataKind::Customer);
    EXPECT_TRUE(chooser->findChild<QRadioButton*>(u"Option1"_s)->isChecked());
    EXPECT_EQ(list->topLevelItemCount(), 2);
    EXPECT_EQ(list->currentItem(), list->topLevelItem(0));
    show(DataKind::Repair);
    EXPECT_TRUE(chooser->findChild<QRadioButton*>(u"Option2"_s)->isChecked());
    EXPECT_EQ(list->currentItem()->text(0), u"修理"_s);
}

TEST_F(Chooser, OpensSharedOrForItselfAndShowsTheNotice)
{
    opener.opened->notice = {u"続行中の件名： 3 件"_s, u"今日の予定数： 1 件"_s};
    show(DataKind::Customer);
    choose(u"甲"_s);
    EXPECT_FALSE(chooser->isVisible());
    EXPECT_THAT(takeNotices(), ElementsAre(u"続行中の件名： 3 件\n今日の予定数： 1 件"_s));
    EXPECT_EQ(shared.CustomerDataPath, file(u"Corvane/甲.mdb"_s));

    show(DataKind::Repair);
    chooser->findChild<QCheckBox*>(u"ChkDB"_s)->setChecked(true);
    QTest::keyClick(list, Qt::Key_Return);
    takeNotices();
    EXPECT_EQ(shared.RepairDataPath, file(u"Care/修理.mdb"_s));
    EXPECT_THAT(
        opener.calls,
        ElementsAre(Call{DataKind::Customer, file(u"Corvane/甲.mdb"_s), Mode::ReadWrite},
                    Call{DataKind::Repair, file(u"Care/修理.mdb"_s), Mode::ShareExclusive}));
    EXPECT_THAT(flow.shown, IsEmpty()); // no menu over the main screens
}

TEST_F(Chooser, AsksForThePassword)
{
    show(DataKind::Customer);
    const Box prompt{0, u"ﾊﾟｽﾜｰﾄﾞﾛｯｸされています,ﾊﾟｽﾜｰﾄﾞを入力して下さい。"_s};
    messages.willType(std::nullopt);
    choose(u"乙"_s);
    EXPECT_THAT(messages.takeBoxes(), ElementsAre(prompt));
    messages.willType(u"秘 密"_s);
    choose(u"乙"_s);
    EXPECT_THAT(messages.takeBoxes(), ElementsAre(prompt, Box{16, u"ﾊﾟｽﾜｰﾄﾞが違います。"_s}));
    EXPECT_THAT(opener.calls, IsEmpty());
    EXPECT_TRUE(chooser->isVisible());
    messages.willType(u"秘密"_s);
    choose(u"乙"_s);
    EXPECT_EQ(messages.takeBoxes().size(), 1);
    EXPECT_EQ(opener.calls.size(), 1);
    takeNotices();
}

TEST_F(Chooser, StaysWhenAFileCannotBeOpenedAndStillLeadsBackToTheMenu)
{
    opener.opened.reset();
    show(DataKind::Customer);
    choose(u"甲"_s);
    EXPECT_EQ(shared.CustomerDataPath, QString());
    EXPECT_TRUE(chooser->isVisible());
    EXPECT_THAT(takeNotices(), IsEmpty());
    QTest::mouseClick(chooser->findChild<QPushButton*>(u"Command2"_s), Qt::LeftButton);
    EXPECT_THAT(flow.shown, ElementsAre(Screen::Menu));
}

TEST_F(Chooser, AnEmptyListSaysSo)
{
    execute(u"DELETE FROM main WHERE 種類 = '修理管理'"_s);
    show(DataKind::Repair);
    EXPECT_TRUE(chooser->findChild<QLabel*>(u"emptyNote"_s)->isVisible());
    EXPECT_FALSE(chooser->findChild<QPushButton*>(u"Command1"_s)->isEnabled());
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_TRUE(chooser->isVisible());
    EXPECT_THAT(opener.calls, IsEmpty());
}
