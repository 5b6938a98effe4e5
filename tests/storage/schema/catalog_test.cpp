#include "storage/schema/catalog.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace storage::schema;

namespace {

TEST(Catalog, NamesAreFoundInAnyWidthAndUnderTheirAliases)
{
    const Table repairs(u"修理"_s, {{u"メーカー名"_s}, {u"ｼﾘｱﾙ"_s}, {u"Ｅ-MAIL"_s}}, {});
    const struct {
        QString name;
        int index;
    } cases[] = {
        {u"メーカー名"_s, 0}, {u"ﾒｰｶｰ名"_s, 0}, {u"ﾒｰｶｰ"_s, 0},      {u"メーカー"_s, 0},
        {u"シリアル"_s, 1},   {u"e-mail"_s, 2}, {u"しりある"_s, -1}, {u""_s, -1},
    };
    for (const auto& each : cases)
        EXPECT_EQ(repairs.indexOf(each.name), each.index) << each.name.toStdString();
    const Table deliveries(u"納品リスト"_s, {{u"メーカー名"_s}}, {});
    EXPECT_EQ(deliveries.indexOf(u"ﾒｰｶｰ"_s), -1);
    // A column of its own comes before an alias.
    const Table both(u"修理"_s, {{u"メーカー名"_s}, {u"メーカー"_s}}, {});
    EXPECT_EQ(both.indexOf(u"ﾒｰｶｰ"_s), 1);
}

TEST(Catalog, NamesThatFoldAlikeAreRefused)
{
    Catalog catalog;
    EXPECT_TRUE(catalog.add(Table(u"ユーザー"_s, {{u"No"_s}}, {})));
    EXPECT_FALSE(catalog.add(Table(u"ﾕｰｻﾞｰ"_s, {{u"No"_s}}, {})));
    EXPECT_FALSE(catalog.add(Table(u"件名"_s, {{u"TEL"_s}, {u"ｔｅｌ"_s}}, {})));
    EXPECT_EQ(catalog.tables().size(), 1);
    ASSERT_NE(catalog.find(u"ﾕｰｻﾞｰ"_s), nullptr);
    EXPECT_EQ(catalog.find(u"ﾕｰｻﾞｰ"_s)->name(), u"ユーザー"_s);
    EXPECT_EQ(catalog.find(u"件名"_s), nullptr);
}

} // namespace
