#include "customer/data/id_issuer.h"

#include "core/data/schedule.h"

#include <array>

using namespace Qt::StringLiterals;

namespace customer {

namespace {

using Kinds = std::array<core::IdKind, 10>;

Kinds allKinds()
{
    return {{
        {u"ユーザー"_s, u"SELECT Max(ﾕｰｻﾞｰ更新ID) as ma1 From ユーザー "_s, u"ユーザー"_s,
         u"SELECT *  From ユーザー Where ﾕｰｻﾞｰ更新ID = "_s, u"ﾕｰｻﾞｰID"_s},
        {u"件名"_s, u"SELECT Max(件名更新ID) as ma1 From 件名 "_s, u"件名"_s,
         u"SELECT * From 件名 Where 件名更新ID = "_s, u"件名ID"_s},
        {u"ログ"_s, u"SELECT Max(ログ更新ID) as ma1 From ログ "_s, u"ログ"_s,
         u"SELECT * From ログ Where ログ更新ID = "_s, u"ログID"_s},
        {u"納品ﾘｽﾄ"_s, u"SELECT Max(納品更新ID) as ma1 From 納品ﾘｽﾄ "_s, u"納品"_s,
         u"SELECT * From 納品ﾘｽﾄ Where 納品更新ID = "_s, u"納品ID"_s},
        {u"ﾘｰｽﾘｽﾄ"_s, u"SELECT Max(ﾘｰｽ更新ID) as ma1 From ﾘｰｽﾘｽﾄ "_s, u"リース"_s,
         u"SELECT * From ﾘｰｽﾘｽﾄ Where ﾘｰｽ更新ID = "_s, u"ﾘｰｽID"_s},
        {u"ユーザー関連ファイル"_s,
         u"SELECT Max(ﾕｰｻﾞｰ関連更新ID) as ma1 From ユーザー関連ファイル "_s, u"ユーザー関連"_s,
         u"SELECT * From ユーザー関連ファイル Where ﾕｰｻﾞｰ関連更新ID = "_s, u"ﾕｰｻﾞｰ関連ID"_s},
        {u"件名関連ファイル"_s, u"SELECT Max(件名関連更新ID) as ma1 From 件名関連ファイル "_s,
         u"件名関連"_s, u"SELECT * From 件名関連ファイル Where 件名関連更新ID = "_s,
         u"件名関連ID"_s},
        {u"自由項目名"_s, u"SELECT Max(項目更新ID) as ma1 From 自由項目名 "_s, u"自由項目名"_s,
         u"SELECT * From 自由項目名 Where 項目更新ID = "_s, u"項目ID"_s},
        core::scheduleKind(),
        {u"カスタム検索"_s, u"SELECT Max(カスタム検索更新ID) as ma1 From カスタム検索 "_s,
         u"カスタム検索"_s, u"SELECT * From カスタム検索 Where カスタム検索更新ID = "_s,
         u"カスタム検索ID"_s},
    }};
}

} // namespace

const core::IdKind& idKind(Kind kind)
{
    static const Kinds kinds = allKinds();
    return kinds[static_cast<std::size_t>(kind) - 1];
}

} // namespace customer
