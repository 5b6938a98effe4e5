#include "core/screens/admin.h"

#include "support/core/data/core_test.h"
#include "support/core/screens/screen_doubles.h"

#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using core::Answer;
using core::Screen;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Admin : public CoreTest {
protected:
    void SetUp() override
    {
        openFolder();
        admin = std::make_unique<core::admin>(shared, flow);
        admin->show();
        list = admin->findChild<QTreeWidget*>(u"ListView1"_s);
    }

    QLineEdit* field(const QString& name) const { return admin->findChild<QLineEdit*>(name); }

    void enter(const QString& name, const QString& password) const
    {
        field(u"Text1_0"_s)->setText(name);
        field(u"Text1_1"_s)->setText(password);
    }

    void click(const QString& button) const
    {
        QTest::mouseClick(admin->findChild<QPushButton*>(button), Qt::LeftButton);
    }

    void add(const QString& name, const QString& password)
    {
        enter(name, password);
        click(u"Command1"_s);
        EXPECT_EQ(messages.takeBoxes().size(), 1);
    }

    // Name and password of each entry, joined by "|".
    QStringList listed() const
    {
        QStringList rows;
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            rows.append(list->topLevelItem(i)->text(0) + u'|' + list->topLevelItem(i)->text(1));
        return rows;
    }

    void select(int row) const { list->setCurrentItem(list->topLevelItem(row)); }

    RecordedFlow flow;
    std::unique_ptr<core::admin> admin;
    QTreeWidget* list = nullptr;
};

} // namespace

TEST_F(Admin, AddsFilesOfTheChosenKind)
{
    add(u"乙"_s, u"p"_s);
    add(u"甲"_s, {});
    EXPECT_EQ(listed().size(), 2);
    EXPECT_EQ(field(u"Text1_0"_s)->text(), QString());
    admin->findChild<QRadioButton*>(u"Option2"_s)->click();
    EXPECT_THAT(listed(), IsEmpty());
    add(u"甲"_s, {});
    EXPECT_TRUE(QFile::exists(file(u"Care/甲.mdb"_s)));
}

TEST_F(Admin, ChangesTheSelectedEntry)
{
    EXPECT_FALSE(admin->findChild<QPushButton*>(u"Command2"_s)->isEnabled());
    add(u"見本"_s, u"p"_s);
    select(0);
    EXPECT_EQ(field(u"Text1_1"_s)->text(), u"p"_s);
    enter(u"実物"_s, {});
    click(u"Command2"_s);
    EXPECT_EQ(messages.takeBoxes().first().style, 64);
    EXPECT_THAT(listed(), ElementsAre(u"実物|"_s));
    EXPECT_TRUE(list->topLevelItem(0)->isSelected());

    QFile::remove(file(u"Corvane/実物.mdb"_s));
    enter(u"三代目"_s, u"q"_s);
    click(u"Command2"_s);
    EXPECT_EQ(messages.takeText(), u"ﾌｧｲﾙが見つかりません。"_s);
    EXPECT_THAT(listed(), ElementsAre(u"三代目|q"_s)); // as its row is now
}

TEST_F(Admin, KeepsWhatWasTypedWhenItIsRefused)
{
    add(u"見本"_s, {});
    enter(u"見本"_s, u"typed"_s);
    click(u"Command1"_s);
    EXPECT_EQ(messages.takeText(), u"同じデータ名が存在します。"_s);
    EXPECT_EQ(field(u"Text1_1"_s)->text(), u"typed"_s);
    select(0);
    enter(u"a/b"_s, u"typed"_s);
    click(u"Command2"_s);
    messages.takeBoxes();
    EXPECT_EQ(field(u"Text1_0"_s)->text(), u"a/b"_s);
    EXPECT_EQ(field(u"Text1_1"_s)->text(), u"typed"_s);
}

TEST_F(Admin, DeletesTheSelectedEntryAfterAsking)
{
    add(u"見本"_s, {});
    select(0);
    messages.willAnswer(Answer::No);
    click(u"Command3"_s);
    EXPECT_EQ(listed().size(), 1);
    messages.willAnswer(Answer::Yes);
    ASSERT_TRUE(QTest::qWaitForWindowActive(admin.get()));
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_EQ(messages.takeBoxes().size(), 2);
    EXPECT_THAT(listed(), IsEmpty());
    EXPECT_FALSE(admin->findChild<QPushButton*>(u"Command3"_s)->isEnabled());
}

TEST_F(Admin, ChangesTheAdministratorAndLeadsBackToTheMenu)
{
    EXPECT_EQ(field(u"Text2_0"_s)->text(), u"Admin"_s);
    field(u"Text2_0"_s)->setText(u"店長"_s);
    field(u"Text2_1"_s)->setText(u"鍵"_s);
    click(u"Command4"_s);
    EXPECT_EQ(messages.takeBoxes().first().style, 64);
    EXPECT_THAT(rows(u"SELECT ﾃﾞｰﾀ,ﾊﾟｽﾜｰﾄﾞ FROM main WHERE 種類='管理者'"_s),
                ElementsAre(u"店長|鍵"_s));
    click(u"Command5"_s);
    EXPECT_THAT(flow.shown, ElementsAre(Screen::Menu));
}
