#include "customer/data/deliveries.h"

using namespace Qt::StringLiterals;
using enum records::KeyedText::Number;

namespace customer {

const records::RecordTable& deliveryTable()
{
    static const records::RecordTable table{
        .name = u"納品ﾘｽﾄ"_s,
        .numbering = {u"SELECT Max(納品更新ID) as ma1 From 納品ﾘｽﾄ "_s,
                      u"SELECT * From 納品ﾘｽﾄ Where 納品更新ID = "_s, u"納品"_s},
        .updateIdColumn = u"納品更新ID"_s,
        .markColumn = u"納品識別ID"_s,
        .idColumn = u"納品ID"_s,
        .rowQuery = {u"SELECT * From 納品ﾘｽﾄ Where 納品更新ID = "_s},
        .parents = {{{u"SELECT * From ユーザー WHERE ﾕｰｻﾞｰID = "_s, Id, u" AND ﾕｰｻﾞｰ識別ID = "_s},
                     u"ユーザーID"_s,
                     u"納品識別ID"_s}},
        .cascade = {{u"DELETE FROM 納品リスト Where 納品更新ID ="_s},
                    {u"DELETE FROM リースリスト Where 納品ID ="_s, Id, u" and ﾘｰｽ識別ID="_s}},
    };
    return table;
}

const records::RecordTable& leaseTable()
{
    static const records::RecordTable table{
        .name = u"ﾘｰｽﾘｽﾄ"_s,
        .numbering = {u"SELECT Max(ﾘｰｽ更新ID) as ma1 From ﾘｰｽﾘｽﾄ "_s,
                      u"SELECT * From ﾘｰｽﾘｽﾄ Where ﾘｰｽ更新ID = "_s, u"リース"_s},
        .updateIdColumn = u"ﾘｰｽ更新ID"_s,
        .markColumn = u"ﾘｰｽ識別ID"_s,
        .idColumn = u"ﾘｰｽID"_s,
        .rowQuery = {u"SELECT * From ﾘｰｽﾘｽﾄ Where ﾘｰｽ更新ID = "_s},
        .parents = {{{u"SELECT * From 納品リスト WHERE 納品ID = "_s, Id, u" AND 納品識別ID = "_s},
                     u"納品ID"_s,
                     u"ﾘｰｽ識別ID"_s},
                    {{u"SELECT * From ユーザー WHERE ﾕｰｻﾞｰID = "_s, Id, u" AND ﾕｰｻﾞｰ識別ID = "_s},
                     u"ユーザーID"_s}},
        .cascade = {{u"DELETE FROM リースリスト Where ﾘｰｽ更新ID ="_s}},
    };
    return table;
}

} // namespace customer
