#include "customer/data/customer_index.h"

#include "customer/data/settings.h"
#include "storage/base/quoted.h"
#include "text/dates.h"

#include <QStringList>

#include <array>

using namespace Qt::StringLiterals;

namespace customer {

using records::IndexNode;
using records::ListFilter;

namespace {

const QString ReadingLike = u"表示名ﾌﾘｶﾞﾅ Like '["_s;
const QString FirstGroupCondition = u" WHERE 表示名ﾌﾘｶﾞﾅ Like '[あ-お]%' "
                                    "or 表示名ﾌﾘｶﾞﾅ Like '[ぁ-ぉ]%' "
                                    "or 表示名ﾌﾘｶﾞﾅ Like '[ｱ-ｵ]%' "
                                    "or 表示名ﾌﾘｶﾞﾅ Like '[ｧ-ｫ]%'"_s;
const QString RecentCustomersCondition = u" WHERE "
                                         "(最近更新日時 BETWEEN #"_s;
const QString RecentCustomersFirst = u" ORDER BY 最近更新日時 DESC"_s;
const QString CustomersWithText = u" WHERE (表示名ﾌﾘｶﾞﾅ & 表示名 & "
                                  "ﾕｰｻﾞｰ名ﾌﾘｶﾞﾅ & ﾕｰｻﾞｰ名 "
                                  "& 自宅ＴＥＬ & 自宅ＦＡＸ & 自宅住所 & 会社名ﾌﾘｶﾞﾅ "
                                  "& 会社名 & 部署 & 会社ＴＥＬ & 会社ＦＡＸ & 会社住所 "
                                  "& [E-MAIL] & [URL] & 備考 ) Like '%"_s;

// A group, its range, and its children as pairs of caption and what its bracket holds.
struct Group {
    QStringView caption;
    QStringView range;
    std::array<QStringView, 9> children;
    std::array<QStringView, 9> ranges;
};

constexpr Group Groups[] = {
    {u"あ行", u"ｱ-ｵ", {u"あ", u"い", u"う", u"え", u"お"}, {u"ｱ", u"ｲ", u"ｳ", u"ｴ", u"ｵ"}},
    {u"か行", u"ｶ-ｺ", {u"か", u"き", u"く", u"け", u"こ"}, {u"ｶ", u"ｷ", u"ｸ", u"ｹ", u"ｺ"}},
    {u"さ行", u"ｻ-ｿ", {u"さ", u"し", u"す", u"せ", u"そ"}, {u"ｻ", u"ｼ", u"ｽ", u"ｾ", u"ｿ"}},
    {u"た行", u"ﾀ-ﾄ", {u"た", u"ち", u"つ", u"て", u"と"}, {u"ﾀ", u"ﾁ", u"ﾂ", u"ﾃ", u"ﾄ"}},
    {u"な行", u"ﾅ-ﾉ", {u"な", u"に", u"ぬ", u"ね", u"の"}, {u"ﾅ", u"ﾆ", u"ﾇ", u"ﾈ", u"ﾉ"}},
    {u"は行", u"ﾊ-ﾎ", {u"は", u"ひ", u"ふ", u"へ", u"ほ"}, {u"ﾊ", u"ﾋ", u"ﾌ", u"ﾍ", u"ﾎ"}},
    {u"ま行", u"ﾏ-ﾓ", {u"ま", u"み", u"む", u"め", u"も"}, {u"ﾏ", u"ﾐ", u"ﾑ", u"ﾒ", u"ﾓ"}},
    {u"や行", u"ﾔ-ﾖ", {u"や", u"ゆ", u"よ"}, {u"ﾔ", u"ﾕ", u"ﾖ"}},
    {u"ら行", u"ﾗ-ﾛ", {u"ら", u"り", u"る", u"れ", u"ろ"}, {u"ﾗ", u"ﾘ", u"ﾙ", u"ﾚ", u"ﾛ"}},
    {u"わ行", u"ﾜ-ﾝ", {u"わ", u"を", u"ん"}, {u"ﾜ", u"ｦ", u"ﾝ"}},
    {u"ＡＢＣ",
     u"A-Z",
     {u"ABC", u"DEF", u"GHI", u"JKL", u"MNO", u"PQR", u"STU", u"VWX", u"YZ"},
     {u"A-C", u"D-F", u"G-I", u"J-L", u"M-O", u"P-R", u"S-U", u"V-X", u"Y-Z"}},
};

QString likeCondition(QStringView range)
{
    return u" WHERE "_s + ReadingLike + range.toString() + u"]%'"_s;
}

// Numbered as they stand, so that a node is found again.
void number(QList<IndexNode>& nodes)
{
    for (qsizetype i = 0; i < nodes.size(); ++i)
        nodes[i].number = static_cast<int>(i) + 1;
}

IndexNode groupNode(const Group& group)
{
    // The first group alone lists all its kinds of kana.
    const bool first = &group == std::begin(Groups);
    IndexNode node = records::conditionNode(
        group.caption.toString(), first ? FirstGroupCondition : likeCondition(group.range));
    for (std::size_t i = 0; i < group.children.size() && !group.children[i].isEmpty(); ++i)
        node.children.append(
            records::conditionNode(group.children[i].toString(), likeCondition(group.ranges[i])));
    number(node.children);
    return node;
}

IndexNode otherNode()
{
    QStringList conditions;
    for (const Group& group : Groups)
        conditions.append(ReadingLike + u'!' + group.range.toString() + u"]%'"_s);
    return records::conditionNode(u"他行"_s, u" WHERE "_s + conditions.join(u" and "));
}

} // namespace

IndexNode customerIndex(records::Database& data)
{
    IndexNode root = records::conditionNode(u"顧客管理"_s, {});
    for (const Group& group : Groups)
        root.children.append(groupNode(group));
    root.children.append(otherNode());
    root.children.append({u"最近更新"_s, recentCustomers});
    root.children.append({u"ｶｽﾀﾑ検索"_s, {}, records::searchNodes(data, customersWithText)});
    number(root.children);
    return root;
}

ListFilter customersWithText(const QString& text)
{
    return {
        CustomersWithText + storage::quoted(text) + u"%'"_s, {}, u'\'' + text + u"'を含む表示"_s};
}

ListFilter recentCustomers(const records::IndexContext& context)
{
    const int days = context.settings[settings::RecentCustomerDays];
    const QString start = text::formatPlainDate(context.today.addDays(-days));
    const QString end = text::formatPlainDate(context.today);
    return {RecentCustomersCondition + start + u" 00:00:00# AND #"_s + end + u" 23:59:59#)"_s,
            RecentCustomersFirst, start + u" ～ "_s + end + u" 更新"_s};
}

} // namespace customer
