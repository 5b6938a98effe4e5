#include "customer/data/customer_index.h"

#include "customer/data/settings.h"
#include "records/data/record_list.h"
#include "support/customer/data/customer_test.h"
#include "text/width.h"

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
        records::Settings all;
        all.set(customer::settings::CustomersShown, 0);
        const auto list = openList(file, customer::customerList(), filter, {}, all);
        QStringList names;
        for (const core::ListRow& row : list->rows(0, 1000))
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

// The reading that begins with this character, in the spellings that people type.
QStringList spellings(QChar first)
{
    const QString reading = QString(first) + u"まだ"_s;
    QString katakana = reading;
    for (QChar& c : katakana) {
        if (c >= u'ぁ' && c <= u'ゖ')
            c = QChar(c.unicode() + 0x60);
    }
    return {reading,
            katakana,
            katakana.normalized(QString::NormalizationForm_D),
            text::toHalfWidthKatakana(reading),
            text::toFullWidth(reading),
            reading.toLower()};
}

// Whatever kind of kana or letter a reading is typed in, it is found under its group and its child
// and nowhere else.
TEST_F(CustomerIndexTest, FindsEveryReadingInItsGroupAndChildAlone)
{
    // For each child the characters that its readings begin with, the first of them or all its
    // caption; behind "-" those of the group alone.
    const std::pair<QString, QString> groups[] = {
        {u"あ行"_s, u"あ い うゔ え お -ぁぃぅぇぉ"_s},
        {u"か行"_s, u"かが きぎ くぐ けげ こご"_s},
        {u"さ行"_s, u"さざ しじ すず せぜ そぞ"_s},
        {u"た行"_s, u"ただ ちぢ つづ てで とど -っ"_s},
        {u"な行"_s, u"な に ぬ ね の"_s},
        {u"は行"_s, u"はばぱ ひびぴ ふぶぷ へべぺ ほぼぽ"_s},
        {u"ま行"_s, u"ま み む め も"_s},
        {u"や行"_s, u"や ゆ よ -ゅょ"_s},
        {u"ら行"_s, u"ら り る れ ろ"_s},
        {u"わ行"_s, u"わ を ん"_s},
        {u"ＡＢＣ"_s, u"ABC DEF GHI JKL MNO PQR STU VWX YZ"_s},
        // Small ya and wa stand before the large ones, small ka and ke behind the last row.
        {u"他行"_s, u"-0９!％[山龠ーヽ・ゃゎヵヶω"_s},
    };
    QMap<QString, QStringList> expected;
    for (const auto& [group, words] : groups) {
        for (const QString& word : words.split(u' ')) {
            const QString child = group == u"ＡＢＣ"_s ? word : word.first(1);
            QStringList nodes{group};
            if (child != u"-"_s)
                nodes.append(group + child);
            for (const QChar first : QStringView(word).sliced(child == u"-"_s ? 1 : 0)) {
                const QStringList all = spellings(first);
                for (const QString& reading : group == u"他行"_s ? all.first(1) : all)
                    expected[reading] = nodes;
            }
        }
    }
    for (const QString& reading : spellings(u'ぁ')) // before the range that the others leave out
        expected[reading] = {u"あ行"_s, u"他行"_s};
    ASSERT_TRUE(file.connection.begin());
    for (auto each = expected.cbegin(); each != expected.cend(); ++each)
        execute(u"INSERT INTO ユーザー (表示名, 表示名ﾌﾘｶﾞﾅ) VALUES ('"_s + each.key() + u"', '"_s
                + each.key() + u"')"_s);
    ASSERT_TRUE(file.connection.commit());

    QMap<QString, QStringList> found;
    const IndexNode root = customerIndex(file);
    for (const IndexNode& group : root.children.first(12)) {
        for (const QString& reading : namesAt({group.caption}))
            found[reading].append(group.caption);
        for (const IndexNode& child : group.children) {
            for (const QString& reading : namesAt({group.caption, child.caption}))
                found[reading].append(group.caption + child.caption);
        }
    }
    EXPECT_GT(expected.size(), 400);
    for (auto each = expected.cbegin(); each != expected.cend(); ++each)
        EXPECT_EQ(found.value(each.key()), each.value()) << each.key().toStdString();
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
