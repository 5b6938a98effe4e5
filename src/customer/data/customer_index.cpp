#include "customer/data/customer_index.h"

#include "storage/quoted.h"
#include "storage/recordset.h"
#include "text/dates.h"

#include <QStringList>

#include <array>

using namespace Qt::StringLiterals;

namespace customer {

namespace {

const QString SearchesQuery = u"Select * From カスタム検索 ORDER BY カスタム検索識別ID,順位"_s;
const QString ReadingLike = u"表示名ﾌﾘｶﾞﾅ Like '["_s;
const QString FirstGroupCondition = u" WHERE 表示名ﾌﾘｶﾞﾅ Like '[あ-お]%' "_s
    + u"or 表示名ﾌﾘｶﾞﾅ Like '[ぁ-ぉ]%' "_s + u"or 表示名ﾌﾘｶﾞﾅ Like '[ｱ-ｵ]%' "_s
    + u"or 表示名ﾌﾘｶﾞﾅ Like '[ｧ-ｫ]%'"_s;
const QString RecentCondition = u" WHERE "_s + u"(最近更新日時 BETWEEN #"_s;
const QString RecentOrder = u" ORDER BY 最近更新日時 DESC"_s;
const QString TextCondition = u" WHERE (表示名ﾌﾘｶﾞﾅ & 表示名 & "_s + u"ﾕｰｻﾞｰ名ﾌﾘｶﾞﾅ & ﾕｰｻﾞｰ名 "_s
    + u"& 自宅ＴＥＬ & 自宅ＦＡＸ & 自宅住所 & 会社名ﾌﾘｶﾞﾅ "_s
    + u"& 会社名 & 部署 & 会社ＴＥＬ & 会社ＦＡＸ & 会社住所 "_s
    + u"& [E-MAIL] & [URL] & 備考 ) Like '%"_s;

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

IndexNode conditionNode(QStringView caption, const QString& condition)
{
    return {caption.toString(), IndexNodeKind::Condition, condition, {}};
}

IndexNode groupNode(const Group& group)
{
    // The first group alone lists all its kinds of kana.
    const bool first = &group == std::begin(Groups);
    IndexNode node =
        conditionNode(group.caption, first ? FirstGroupCondition : likeCondition(group.range));
    for (std::size_t i = 0; i < group.children.size() && !group.children[i].isEmpty(); ++i)
        node.children.append(conditionNode(group.children[i], likeCondition(group.ranges[i])));
    return node;
}

IndexNode otherNode()
{
    QStringList conditions;
    for (const Group& group : Groups)
        conditions.append(ReadingLike + u'!' + group.range.toString() + u"]%'"_s);
    return conditionNode(u"他行", u" WHERE "_s + conditions.join(u" and "));
}

IndexNode searchesNode(CustomerFile& file)
{
    IndexNode node{u"ｶｽﾀﾑ検索"_s, IndexNodeKind::SearchFolder, {}, {}};
    storage::Recordset rows;
    if (!rows.open(SearchesQuery, file.connection))
        return node;
    while (!rows.eof()) {
        node.children.append({rows.text(u"文字列"), IndexNodeKind::Search, {}, {}});
        if (!rows.moveNext())
            break;
    }
    return node;
}

} // namespace

IndexNode customerIndex(CustomerFile& file)
{
    IndexNode root = conditionNode(u"顧客管理", {});
    for (const Group& group : Groups)
        root.children.append(groupNode(group));
    root.children.append(otherNode());
    root.children.append({u"最近更新"_s, IndexNodeKind::Recent, {}, {}});
    root.children.append(searchesNode(file));
    return root;
}

std::optional<ListFilter> filterOf(const IndexNode& node, const Settings& settings, QDate today)
{
    switch (node.kind) {
    case IndexNodeKind::Condition:
        return ListFilter{node.condition, {}, node.caption};
    case IndexNodeKind::Recent:
        return recentCustomers(settings, today);
    case IndexNodeKind::Search:
        return customersWithText(node.caption);
    case IndexNodeKind::SearchFolder:
        break;
    }
    return std::nullopt;
}

ListFilter customersWithText(const QString& text)
{
    return {TextCondition + storage::quoted(text) + u"%'"_s, {}, u'\'' + text + u"'を含む表示"_s};
}

ListFilter recentCustomers(const Settings& settings, QDate today)
{
    const QString start = text::formatPlainDate(today.addDays(-settings.recentCustomerDays));
    const QString end = text::formatPlainDate(today);
    return {RecentCondition + start + u" 00:00:00# AND #"_s + end + u" 23:59:59#)"_s, RecentOrder,
            start + u" ～ "_s + end + u" 更新"_s};
}

} // namespace customer
