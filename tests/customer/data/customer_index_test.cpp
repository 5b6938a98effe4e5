#include "customer/data/customer_index.h"

#include "customer/data/settings.h"
#include "records/data/record_list.h"
#include "support/customer/data/customer_test.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using records::IndexNode;
using records::ListFilter;
using testing::IsEmpty;

namespace {

class CustomerIndexTest : public OpenCustomerTest {
protected:
    QStringList namesOf(const ListFilter& filter)
    {
        const auto list = openList(file, customer::customerList(), filter, {}, {});
        QStringList names;
        for (const core::ListRow& row : list->rows(0, 100))
            names.append(row.cells.first());
        return names;
    }

    // What the node at a path of captions below the root shows.
    QStringList namesAt(const QStringList& path)
    {
        IndexNode node = customerIndex(file);
        for (const QString& caption : path) {
            const auto found =
                std::find_if(node.children.cbegin(), node.children.cend(),
                             [&](const IndexNode& child) { return child.caption == caption; });
            if (found == node.children.cend())
                return {u"no node "_s + caption};
            node = IndexNode(*found);
        }
        return node.filter ? namesOf(*node.filter(context)) : QStringList{u"shows nothing"_s};
    }
    QString conditionOf(const IndexNode& node) { return node.filter(context)->condition; }

    records::Settings settings;
    records::IndexContext context{settings, clock.today()};
};

TEST_F(CustomerIndexTest, HasItsNodesInOrder)
{
    QStringList lines;
    const IndexNode root = customerIndex(file);
    for (const IndexNode& node : root.children) {
        QStringList captions;
        for (const IndexNode& child : node.children)
            captions.append(child.caption);
        lines.append(node.caption + u':' + captions.join(u' '));
    }
    EXPECT_EQ(
        lines,
        (QStringList{u"あ行:あ い う え お"_s, u"か行:か き く け こ"_s, u"さ行:さ し す せ そ"_s,
                     u"た行:た ち つ て と"_s, u"な行:な に ぬ ね の"_s, u"は行:は ひ ふ へ ほ"_s,
                     u"ま行:ま み む め も"_s, u"や行:や ゆ よ"_s, u"ら行:ら り る れ ろ"_s,
                     u"わ行:わ を ん"_s, u"ＡＢＣ:ABC DEF GHI JKL MNO PQR STU VWX YZ"_s, u"他行:"_s,
                     u"最近更新:"_s, u"ｶｽﾀﾑ検索:"_s}));
}

TEST_F(CustomerIndexTest, BuildsItsConditionsAsPrescribed)
{
    const IndexNode root = customerIndex(file);
    EXPECT_EQ(root.caption, u"顧客管理");
    EXPECT_EQ(conditionOf(root), u"");
    EXPECT_EQ(conditionOf(root.children[0]),
              u" WHERE 表示名ﾌﾘｶﾞﾅ Like '[あ-お]%' or 表示名ﾌﾘｶﾞﾅ Like '[ぁ-ぉ]%' "
              u"or 表示名ﾌﾘｶﾞﾅ Like '[ｱ-ｵ]%' or 表示名ﾌﾘｶﾞﾅ Like '[ｧ-ｫ]%'");
    EXPECT_EQ(conditionOf(root.children[0].children[0]), u" WHERE 表示名ﾌﾘｶﾞﾅ Like '[ｱ]%'");
    EXPECT_EQ(conditionOf(root.children[9].children[1]), u" WHERE 表示名ﾌﾘｶﾞﾅ Like '[ｦ]%'");
    EXPECT_EQ(conditionOf(root.children[10]), u" WHERE 表示名ﾌﾘｶﾞﾅ Like '[A-Z]%'");
    EXPECT_TRUE(
        conditionOf(root.children[11])
            .endsWith(u"'[!ﾗ-ﾛ]%' and 表示名ﾌﾘｶﾞﾅ Like '[!ﾜ-ﾝ]%' and 表示名ﾌﾘｶﾞﾅ Like '[!A-Z]%'"));
}

// Whatever kind of kana or letter a reading is typed in, it is found under its group and its child.
TEST_F(CustomerIndexTest, FindsReadingsOfAllKinds)
{
    const struct {
        QString reading;
        QString group;
        QString child;
    } cases[] = {
        {u"ｱｵｷ"_s, u"あ行"_s, u"あ"_s},    {u"あおき"_s, u"あ行"_s, u"あ"_s},
        {u"アオキ"_s, u"あ行"_s, u"あ"_s}, {u"ｫｰﾄ"_s, u"あ行"_s, {}},
        {u"ヴェラ"_s, u"あ行"_s, u"う"_s}, {u"ｶﾄｳ"_s, u"か行"_s, u"か"_s},
        {u"がとう"_s, u"か行"_s, u"か"_s}, {u"ガトウ"_s, u"か行"_s, u"か"_s},
        {u"ｶﾞﾄｳ"_s, u"か行"_s, u"か"_s},   {u"ｺﾞﾄｳ"_s, u"か行"_s, u"こ"_s},
        {u"ぞう"_s, u"さ行"_s, u"そ"_s},   {u"ドイ"_s, u"た行"_s, u"と"_s},
        {u"ノダ"_s, u"な行"_s, u"の"_s},   {u"ﾊﾞﾊﾞ"_s, u"は行"_s, u"は"_s},
        {u"ポール"_s, u"は行"_s, u"ほ"_s}, {u"もり"_s, u"ま行"_s, u"も"_s},
        {u"ﾖｼﾀﾞ"_s, u"や行"_s, u"よ"_s},   {u"ロク"_s, u"ら行"_s, u"ろ"_s},
        {u"をがわ"_s, u"わ行"_s, u"を"_s}, {u"ン"_s, u"わ行"_s, u"ん"_s},
        {u"abe"_s, u"ＡＢＣ"_s, u"ABC"_s}, {u"Ｚoo"_s, u"ＡＢＣ"_s, u"YZ"_s},
        {u"山田"_s, u"他行"_s, {}},        {u"24時間"_s, u"他行"_s, {}},
        {u"％"_s, u"他行"_s, {}},          {u"[株]"_s, u"他行"_s, {}},
    };
    for (const auto& expected : cases)
        addNamed(expected.reading, expected.reading);
    const IndexNode root = customerIndex(file);
    for (const auto& expected : cases) {
        for (const IndexNode& group : root.children.first(12)) {
            const bool shown = namesAt({group.caption}).contains(expected.reading);
            EXPECT_EQ(shown, group.caption == expected.group)
                << expected.reading.toStdString() << " in " << group.caption.toStdString();
            for (const IndexNode& child : group.children) {
                if (group.caption != expected.group || expected.child.isEmpty())
                    continue;
                EXPECT_EQ(namesAt({group.caption, child.caption}).contains(expected.reading),
                          child.caption == expected.child)
                    << expected.reading.toStdString() << " in " << child.caption.toStdString();
            }
        }
    }
}

TEST_F(CustomerIndexTest, RecentMeansTheWholeOfTheFirstAndLastDay)
{
    const struct {
        QString name;
        QDate date;
        QTime time;
    } moments[] = {
        {u"早い"_s, {2024, 4, 7}, {23, 59, 59, 999}}, {u"初日"_s, {2024, 4, 8}, {0, 0}},
        {u"途中"_s, {2024, 4, 11}, {12, 0}},          {u"末日"_s, {2024, 4, 15}, {23, 59, 59}},
        {u"明日"_s, {2024, 4, 16}, {0, 0}},
    };
    for (const auto& moment : moments) {
        clock.set(moment.date, moment.time);
        addNamed(moment.name, u"ｱ"_s);
    }
    const ListFilter recent = customer::recentCustomers({settings, QDate(2024, 4, 15)});
    EXPECT_EQ(recent.caption, u"2024/04/08 ～ 2024/04/15 更新");
    EXPECT_EQ(namesOf(recent), (QStringList{u"末日"_s, u"途中"_s, u"初日"_s})); // latest first

    // A clicked header sorts from then on.
    const auto list = openList(file, customer::customerList(), recent,
                               orderOf(customer::customerList(), 0, false), {});
    EXPECT_EQ(list->rows(0, 1).first().cells.first(), u"初日");
}

TEST_F(CustomerIndexTest, StoredSearchesSearchAllTexts)
{
    execute(u"INSERT INTO カスタム検索 (カスタム検索識別ID, 文字列, 順位) VALUES (1, '03', 1)"_s);
    execute(u"INSERT INTO カスタム検索 (カスタム検索識別ID, 文字列, 順位) VALUES (0, '後', 2)"_s);
    execute(u"INSERT INTO カスタム検索 (カスタム検索識別ID, 文字列, 順位) VALUES (0, '株', 1)"_s);
    records::FieldValues fields = named(u"電話"_s, u"ﾃﾞﾝﾜ"_s);
    fields.append({u"自宅TEL"_s, u"０３-1"_s});
    add(customer::customerTable(), {}, fields);
    fields = named(u"会社"_s, u"会社"_s);
    fields.append({u"備考"_s, u"㈱"_s});
    add(customer::customerTable(), {}, fields);

    QStringList captions;
    const IndexNode root = customerIndex(file);
    for (const IndexNode& node : root.children.last().children)
        captions.append(node.caption);
    EXPECT_EQ(captions, (QStringList{u"株"_s, u"後"_s, u"03"_s}));
    EXPECT_EQ(namesAt({u"ｶｽﾀﾑ検索"_s, u"03"_s}), QStringList{u"電話"_s});
    EXPECT_EQ(namesAt({u"ｶｽﾀﾑ検索"_s, u"株"_s}), QStringList{u"会社"_s});
    EXPECT_THAT(namesAt({u"ｶｽﾀﾑ検索"_s, u"後"_s}), IsEmpty());
    EXPECT_EQ(namesAt({u"ｶｽﾀﾑ検索"_s}), QStringList{u"shows nothing"_s});
    EXPECT_EQ(customer::customersWithText(u"03"_s).caption, u"'03'を含む表示");
}

TEST_F(CustomerIndexTest, AQuoteIsACharacterLikeAnyOther)
{
    addNamed(u"O'Hara"_s, u"ｵﾊﾗ"_s);
    addNamed(u"''"_s, u"ﾅｼ"_s);
    addNamed(u"OHara"_s, u"ｵﾊﾗ"_s);
    const struct {
        QString text;
        qint64 found;
    } cases[] = {{u"o'h"_s, 1}, {u"'"_s, 2}, {u"''"_s, 1}, {u"' or '%"_s, 0}, {u"'_a"_s, 1}};
    for (const auto& each : cases) {
        const auto list = openList(file, customer::customerList(),
                                   customer::customersWithText(each.text), {}, {});
        EXPECT_EQ(list->total(), each.found) << each.text.toStdString();
    }
}

TEST_F(CustomerIndexTest, ATextThatTheEngineRefusesIsTold)
{
    const auto list =
        openList(file, customer::customerList(), customer::customersWithText(u"[ｱ"_s), {}, {});
    EXPECT_TRUE(messages.takeText().startsWith(u"データを読めませんでした。\r\n"));
    EXPECT_FALSE(list->isReadable());
    EXPECT_EQ(list->count(), 0);
    EXPECT_THAT(list->rows(0, 10), IsEmpty());
    EXPECT_EQ(takeErrors(), QList{storage::ErrorKind::Syntax});
}

} // namespace
