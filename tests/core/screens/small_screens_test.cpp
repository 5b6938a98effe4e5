#include "core/screens/admin.h"
#include "core/screens/dopen.h"
#include "core/screens/info.h"
#include "core/screens/login.h"
#include "core/screens/msgboxf.h"
#include "core/screens/top.h"
#include "core/screens/version.h"
#include "support/core/data/core_test.h"
#include "support/core/screens/screen_doubles.h"
#include "support/recording_opener.h"
#include "support/ui/composed_enter.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using core::Screen;
using testing::ElementsAre;
using Box = ScriptedMessages::Box;

namespace {

using SmallScreens = CoreTest;

} // namespace

TEST_F(SmallScreens, TheSplashScreenLeadsToTheMenuOnce)
{
    RecordedFlow flow;
    core::top clicked(shared, flow);
    clicked.show();
    EXPECT_THAT(clicked.findChild<QLabel*>(u"Label1"_s)->text(),
                testing::Eq(u"バージョン 3.1.1"_s));
    QTest::mouseClick(clicked.findChild<QLabel*>(u"Label2"_s), Qt::LeftButton);
    EXPECT_FALSE(clicked.isVisible());
    EXPECT_THAT(flow.shown, ElementsAre(Screen::Menu));

    core::top timed(shared, flow);
    timed.show();
    EXPECT_TRUE(QTest::qWaitFor([&timed] { return !timed.isVisible(); }, 6000));
    EXPECT_THAT(flow.shown, ElementsAre(Screen::Menu, Screen::Menu));
}

TEST_F(SmallScreens, TheSplashColourIsNeverBlack)
{
    RecordedFlow flow;
    QSet<QRgb> colours;
    for (int i = 0; i < 100; ++i) {
        clock.advanceMsecs(1);
        const core::top splash(shared, flow);
        const QPalette palette = splash.findChild<QLabel*>(u"Label2"_s)->palette();
        colours.insert(palette.color(QPalette::WindowText).rgb());
    }
    EXPECT_FALSE(colours.contains(qRgb(0, 0, 0)));
    EXPECT_GT(colours.size(), 10);
}

TEST_F(SmallScreens, TheVersionScreenOpensAddresses)
{
    RecordingOpener opener;
    core::version screen(messages, opener);
    screen.findChild<QLineEdit*>(u"Text1"_s)->setText(u"http://shop.example/"_s);
    QTest::mouseClick(screen.findChild<QPushButton*>(u"Command1"_s), Qt::LeftButton);
    for (const QString& address : {u"a@shop.example"_s, u"MailTo:b@shop.example"_s, u"mail"_s}) {
        screen.findChild<QLineEdit*>(u"Text2"_s)->setText(address);
        QTest::mouseClick(screen.findChild<QPushButton*>(u"Command2"_s), Qt::LeftButton);
    }
    EXPECT_THAT(opener.opened,
                ElementsAre(u"http://shop.example/"_s, u"mailto:a@shop.example"_s,
                            u"MailTo:b@shop.example"_s, u"mailto:mail"_s));
    opener.outcome = core::Opened::NoProgram;
    for (const QString& name : {u"Command1"_s, u"Command2"_s})
        QTest::mouseClick(screen.findChild<QPushButton*>(name), Qt::LeftButton);
    const QString noProgram = u"\r\nこのアドレスを開くプログラムがありません。"_s;
    EXPECT_THAT(messages.takeBoxes(),
                ElementsAre(Box{16, u"開けませんでした。\r\nhttp://shop.example/"_s + noProgram},
                            Box{16, u"開けませんでした。\r\nmailto:mail"_s + noProgram}));
}

TEST_F(SmallScreens, TheConfirmationLeavesItsAnswer)
{
    const std::pair<QString, QString> answers[] = {{u"Command1"_s, u"1"_s},
                                                   {u"Command2"_s, u"0"_s}};
    for (const auto& [button, answer] : answers) {
        shared.DialogAnswer = u"6"_s;
        core::msgboxf box(shared, u"よろしいですか？"_s);
        box.show();
        EXPECT_EQ(shared.DialogAnswer, u"0"_s);
        QTest::mouseClick(box.findChild<QPushButton*>(button), Qt::LeftButton);
        EXPECT_FALSE(box.isVisible());
        EXPECT_EQ(shared.DialogAnswer, answer);
    }
}

TEST_F(SmallScreens, TheNoticeClosesByAClickOnItsTextOrByKey)
{
    core::info notice({u"続行中の件名： 3 件"_s, u"一覧は印刷にて確認出来ます。"_s});
    auto* const text = notice.findChild<QLabel*>(u"Label1"_s);
    EXPECT_EQ(text->text(), u"続行中の件名： 3 件\n一覧は印刷にて確認出来ます。"_s);
    notice.show();
    QTest::mouseClick(text, Qt::LeftButton);
    EXPECT_FALSE(notice.isVisible());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Escape}) {
        notice.show();
        QTest::keyClick(&notice, key);
        EXPECT_FALSE(notice.isVisible()) << key;
    }
}

TEST_F(SmallScreens, EnterThatConfirmsAConversionStaysInItsField)
{
    openFolder();
    RecordedFlow flow;
    RecordedFileOpener opener;
    core::login login(shared, flow);
    core::admin admin(shared, flow);
    core::dopen chooser(shared, flow, opener);
    chooser.prepare(core::DataKind::Customer);
    for (const auto& [form, fields] :
         {std::pair<QWidget*, int>{&login, 2}, {&admin, 4}, {&chooser, 0}}) {
        form->show();
        EXPECT_EQ(expectConversionsStayInTheirFields(*form), fields);
    }
    EXPECT_THAT(flow.shown, testing::IsEmpty());
}
