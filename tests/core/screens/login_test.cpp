#include "core/screens/login.h"

#include "support/core/data/core_test.h"
#include "support/core/screens/screen_doubles.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using core::Screen;
using testing::ElementsAre;
using testing::IsEmpty;
using Box = ScriptedMessages::Box;

namespace {

class Login : public CoreTest {
protected:
    void SetUp() override
    {
        openFolder();
        login = std::make_unique<core::login>(shared, flow);
        name = login->findChild<QLineEdit*>(u"Text1_0"_s);
        password = login->findChild<QLineEdit*>(u"Text1_1"_s);
        login->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(login.get()));
    }

    RecordedFlow flow;
    std::unique_ptr<core::login> login;
    QLineEdit* name = nullptr;
    QLineEdit* password = nullptr;
};

} // namespace

TEST_F(Login, TheShippedAdministratorLogsInByEnterAlone)
{
    EXPECT_EQ(login->windowTitle(), u"管理者用ログイン"_s);
    EXPECT_EQ(login->findChild<QLabel*>(u"Label1"_s)->text(),
              u"初期値は管理者名：｢Admin｣ ﾊﾟｽﾜｰﾄﾞ：｢｣"_s);
    QTest::keyClicks(name, u"Admin"_s);
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_TRUE(login->isVisible());
    EXPECT_TRUE(password->hasFocus());
    QTest::keyClick(password, Qt::Key_Return);
    EXPECT_FALSE(login->isVisible());
    EXPECT_THAT(flow.shown, ElementsAre(Screen::Admin));
}

TEST_F(Login, AWrongPasswordStaysAndMayBeTriedAgain)
{
    name->setText(u"Admin"_s);
    password->setText(u"x"_s);
    for (int i = 0; i < 3; ++i) {
        QTest::mouseClick(login->findChild<QPushButton*>(u"Command1"_s), Qt::LeftButton);
        EXPECT_THAT(messages.takeBoxes(),
                    ElementsAre(Box{16, u"管理者名 または パスワードが違います。"_s}));
        EXPECT_TRUE(login->isVisible());
        EXPECT_TRUE(password->hasFocus());
    }
    EXPECT_THAT(flow.shown, IsEmpty());
    QTest::keyClick(login.get(), Qt::Key_Escape);
    EXPECT_THAT(flow.shown, ElementsAre(Screen::Menu));
}

TEST_F(Login, ClosingByTheFrameGoesBackToTheMenu)
{
    name->setText(u"Admin"_s);
    login->close();
    EXPECT_THAT(flow.shown, ElementsAre(Screen::Menu));
}
