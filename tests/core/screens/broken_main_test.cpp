#include "core/screens/admin.h"
#include "core/screens/dopen.h"
#include "core/screens/login.h"
#include "core/screens/saiteki.h"

#include "support/core/data/core_test.h"
#include "support/core/screens/screen_doubles.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using core::DataKind;
using testing::ElementsAre;

// A main.mdb that cannot be opened must not look like a shop without data.

namespace {

class BrokenMain : public CoreTest {
protected:
    void SetUp() override
    {
        openFolder();
        add(DataKind::Customer, u"見本"_s);
        breakMain();
    }

    void TearDown() override
    {
        takeErrors();
        CoreTest::TearDown();
    }

    void breakMain() { ASSERT_TRUE(QFile::rename(file(u"main.mdb"_s), file(u"aside"_s))); }
    void heal() { ASSERT_TRUE(QFile::rename(file(u"aside"_s), file(u"main.mdb"_s))); }

    void expectTold()
    {
        EXPECT_TRUE(messages.takeText().startsWith(u"main.mdb を開けませんでした。\r\n場所： "_s
                                                   + file(u"main.mdb"_s)));
    }

    static void click(const QWidget& screen, const QString& button)
    {
        QTest::mouseClick(screen.findChild<QPushButton*>(button), Qt::LeftButton);
    }

    static QTreeWidget& list(const QWidget& screen)
    {
        return *screen.findChild<QTreeWidget*>(u"ListView1"_s);
    }

    // The words in place of the list; empty while it is shown.
    static QString note(const QWidget& screen)
    {
        const auto* const label = screen.findChild<QLabel*>(u"emptyNote"_s);
        return label->isHidden() ? QString() : label->text();
    }

    RecordedFlow flow;
    RecordedFileOpener opener;
};

} // namespace

TEST_F(BrokenMain, TheChooserSaysSoAndTheNextOneWorks)
{
    core::dopen chooser(shared, flow, opener);
    chooser.prepare(DataKind::Customer);
    expectTold();
    EXPECT_TRUE(note(chooser).startsWith(u"データの一覧を読めませんでした。"_s));
    EXPECT_FALSE(chooser.findChild<QPushButton*>(u"Command1"_s)->isEnabled());
    heal();
    core::dopen next(shared, flow, opener);
    next.prepare(DataKind::Customer);
    EXPECT_EQ(list(next).topLevelItemCount(), 1);
    EXPECT_EQ(note(next), QString());
}

TEST_F(BrokenMain, OptimisationSaysSoAndTheNextOneWorks)
{
    const core::saiteki screen(shared, flow);
    expectTold();
    EXPECT_TRUE(note(screen).startsWith(u"データの一覧を読めませんでした。"_s));
    heal();
    const core::saiteki next(shared, flow);
    EXPECT_EQ(list(next).topLevelItemCount(), 1);
    EXPECT_EQ(note(next), QString());
}

TEST_F(BrokenMain, TheLoginDoesNotBlameThePassword)
{
    core::login login(shared, flow);
    login.show();
    login.findChild<QLineEdit*>(u"Text1_0"_s)->setText(u"Admin"_s);
    for (int i = 0; i < 2; ++i) {
        click(login, u"Command1"_s);
        expectTold();
        EXPECT_TRUE(login.isVisible());
    }
    heal();
    click(login, u"Command1"_s);
    EXPECT_THAT(flow.shown, ElementsAre(core::Screen::Admin));
}

TEST_F(BrokenMain, TheAdministratorIsNotReplacedByEmptyFields)
{
    core::admin admin(shared, flow);
    expectTold(); // once, for the list and the administrator
    EXPECT_NE(note(admin), QString());
    EXPECT_FALSE(admin.findChild<QPushButton*>(u"Command4"_s)->isEnabled());
    heal();
    admin.findChild<QRadioButton*>(u"Option2"_s)->click();
    EXPECT_EQ(note(admin), QString());
    EXPECT_EQ(admin.findChild<QLineEdit*>(u"Text2_0"_s)->text(), u"Admin"_s);
    EXPECT_TRUE(admin.findChild<QPushButton*>(u"Command4"_s)->isEnabled());
}

TEST_F(BrokenMain, WhatWasTypedAndChosenWaitsForTheNextTry)
{
    heal();
    core::admin admin(shared, flow);
    admin.show();
    list(admin).setCurrentItem(list(admin).topLevelItem(0));
    auto* const name = admin.findChild<QLineEdit*>(u"Text1_0"_s);
    name->setText(u"実物"_s);
    breakMain();
    for (const QString& button : {u"Command1"_s, u"Command2"_s, u"Command3"_s, u"Command4"_s}) {
        click(admin, button);
        expectTold();
        EXPECT_EQ(name->text(), u"実物"_s);
        EXPECT_EQ(list(admin).selectedItems().size(), 1);
    }
    heal();
    click(admin, u"Command2"_s);
    EXPECT_TRUE(messages.takeText().startsWith(u"データ名が 『 見本 』 から 『 実物 』"_s));
    EXPECT_EQ(list(admin).topLevelItem(0)->text(0), u"実物"_s);
}
