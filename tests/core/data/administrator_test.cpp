#include "core/data/administrator.h"

#include "support/core/data/core_test.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using core::CheckAdministrator;
using testing::ElementsAre;
using Box = ScriptedMessages::Box;

namespace {

class AdministratorRow : public CoreTest {
protected:
    void SetUp() override { openFolder(); }
};

} // namespace

TEST_F(AdministratorRow, IsComparedExactly)
{
    const struct {
        QString name;
        QString password;
        bool expected;
    } tries[] = {
        {u"Admin"_s, {}, true},  {u"Admin"_s, u"x"_s, false},
        {u"admin"_s, {}, false}, {u"Ａｄｍｉｎ"_s, {}, false},
        {{}, {}, false},
    };
    for (const auto& [name, password, expected] : tries)
        EXPECT_EQ(CheckAdministrator(shared, name, password), expected) << name.toStdString();
}

TEST_F(AdministratorRow, SavesAnEmptyPasswordAsNull)
{
    const QString row = u"SELECT ﾃﾞｰﾀ,ﾊﾟｽﾜｰﾄﾞ FROM main WHERE 種類='管理者'"_s;
    EXPECT_TRUE(core::SaveAdministrator(shared, {u"店長"_s, u"Pass'1"_s}));
    EXPECT_THAT(rows(row), ElementsAre(u"店長|Pass'1"_s));
    EXPECT_EQ(CheckAdministrator(shared, u"店長"_s, u"Pass'1"_s), true);
    EXPECT_EQ(CheckAdministrator(shared, u"店長"_s, u"pass'1"_s), false);
    EXPECT_EQ(core::LoadAdministrator(shared), (core::Administrator{u"店長"_s, u"Pass'1"_s}));

    EXPECT_TRUE(core::SaveAdministrator(shared, {u"店長"_s, {}}));
    EXPECT_THAT(rows(row), ElementsAre(u"店長|Null"_s));
    EXPECT_EQ(CheckAdministrator(shared, u"店長"_s, {}), true);
    EXPECT_THAT(messages.takeBoxes(),
                ElementsAre(Box{64,
                                u"管理者名が 『 Admin 』 から 『 店長 』 に変更されました。\r\n"
                                "パスワードが 『  』 から 『 Pass'1 』 に変更されました。"_s},
                            Box{64,
                                u"管理者名が 『 店長 』 から 『 店長 』 に変更されました。\r\n"
                                "パスワードが 『 Pass'1 』 から 『  』 に変更されました。"_s}));
}

TEST_F(AdministratorRow, WithoutARowNothingMatchesAndNothingIsSaved)
{
    execute(u"DELETE FROM main WHERE 種類='管理者'"_s);
    EXPECT_EQ(CheckAdministrator(shared, u"Admin"_s, {}), false);
    EXPECT_EQ(CheckAdministrator(shared, {}, {}), false);
    EXPECT_FALSE(core::SaveAdministrator(shared, {u"Admin"_s, {}}));
    EXPECT_TRUE(messages.takeText().startsWith(u"保存できませんでした。\r\n場所： "_s
                                               + file(u"main.mdb"_s)));
    EXPECT_EQ(takeErrors().size(), 1);
}
