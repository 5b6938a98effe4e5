#include "core/screens/menu.h"

#include "support/core/data/core_test.h"
#include "support/core/screens/screen_doubles.h"
#include "support/recording_opener.h"

#include <QEnterEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using core::DataKind;
using core::Screen;
using testing::ElementsAre;
using testing::IsEmpty;
using Box = ScriptedMessages::Box;

namespace {

class Menu : public CoreTest {
protected:
    void SetUp() override
    {
        openFolder();
        writeFile(u"menu.ini"_s, u"一\n二\n三\n四\n五\n六\n七\n八\n九\n"_s.toUtf8());
        open();
    }

    void open()
    {
        menu = std::make_unique<core::menu>(shared, flow, opener);
        menu->show();
    }

    QPushButton* button(int index) const
    {
        return menu->findChild<QPushButton*>(u"Command1_"_s + QString::number(index));
    }

    // What the description label shows after the mouse has come over a button, or over the
    // background.
    QString hover(QWidget* widget)
    {
        QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        QCoreApplication::sendEvent(widget, &enter);
        QTest::mouseMove(widget, QPoint(2, 2));
        QTest::mouseMove(widget, QPoint(1, 1));
        return menu->findChild<QLabel*>(u"Label1"_s)->text();
    }

    RecordedFlow flow;
    RecordingOpener opener;
    std::unique_ptr<core::menu> menu;
};

} // namespace

TEST_F(Menu, EveryButtonHasItsDescription)
{
    QStringList shown;
    for (int i = 0; i < 8; ++i)
        shown.append(hover(button(i)));
    EXPECT_EQ(shown.join(u""_s), u"一二三四五六七八"_s);
    EXPECT_EQ(hover(menu->findChild<QWidget*>(u"Picture1"_s)), QString());
    button(3)->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(menu->findChild<QLabel*>(u"Label1"_s)->text(), u"四"_s);
}

TEST_F(Menu, StartsWithoutDescriptions)
{
    QFile::remove(file(u"menu.ini"_s));
    open();
    EXPECT_EQ(hover(button(0)), QString());
}

TEST_F(Menu, ButtonsHandOverWithoutEndingTheProgram)
{
    for (int i = 0; i < 5; ++i) {
        open();
        EXPECT_TRUE(shared.EndOnMenuClose);
        QTest::mouseClick(button(i), Qt::LeftButton);
        EXPECT_FALSE(shared.EndOnMenuClose);
        EXPECT_FALSE(menu->isVisible());
    }
    EXPECT_THAT(flow.shown, ElementsAre(Screen::Login, Screen::Exchange, Screen::Optimisation));
    EXPECT_THAT(flow.choosers, ElementsAre(DataKind::Customer, DataKind::Repair));
    EXPECT_EQ(flow.ends, 0);
    EXPECT_TRUE(shared.MainConnection);
}

TEST_F(Menu, StaysWhenAScreenIsNotThereYet)
{
    flow.lacking = {Screen::Exchange};
    flow.lackingKinds = {DataKind::Repair};
    for (const int index : {2, 3}) {
        QTest::mouseClick(button(index), Qt::LeftButton);
        EXPECT_THAT(messages.takeBoxes(), ElementsAre(Box{64, u"この画面はまだありません。"_s}));
    }
    EXPECT_TRUE(menu->isVisible());
    EXPECT_TRUE(shared.EndOnMenuClose);
    EXPECT_THAT(flow.shown, IsEmpty());
    EXPECT_THAT(flow.choosers, IsEmpty());
}

TEST_F(Menu, HelpOpensTheHelpFileAndTheMenuStays)
{
    ASSERT_TRUE(QTest::qWaitForWindowActive(menu.get()));
    shared.HelpFilePath = u"/somewhere/help.chm"_s;
    QTest::keyClick(menu.get(), Qt::Key_F1);
    opener.outcome = core::Opened::NoProgram;
    QTest::mouseClick(button(5), Qt::LeftButton);
    EXPECT_THAT(opener.opened, ElementsAre(shared.HelpFilePath, shared.HelpFilePath));
    EXPECT_THAT(messages.takeBoxes(), ElementsAre(Box{16, u"ヘルプを開けませんでした。"_s}));
    EXPECT_TRUE(menu->isVisible());
}

TEST_F(Menu, ClosingItEndsTheProgram)
{
    menu->close(); // as from the window's frame
    EXPECT_EQ(flow.ends, 1);
    EXPECT_FALSE(shared.MainConnection);
}

TEST_F(Menu, ExitEndsTheProgramAfterAScreenCameBack)
{
    QTest::mouseClick(button(0), Qt::LeftButton);
    open();
    QTest::mouseClick(button(7), Qt::LeftButton);
    EXPECT_EQ(flow.ends, 1);
}
