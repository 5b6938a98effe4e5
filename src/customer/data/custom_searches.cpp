#include "customer/data/custom_searches.h"

using namespace Qt::StringLiterals;

namespace customer {

const records::RecordTable& customSearchTable()
{
    static const records::RecordTable table{
        .name = u"カスタム検索"_s,
        .numbering = {u"SELECT Max(カスタム検索更新ID) as ma1 From カスタム検索 "_s,
                      u"SELECT * From カスタム検索 Where カスタム検索更新ID = "_s,
                      u"カスタム検索"_s},
        .updateIdColumn = u"カスタム検索更新ID"_s,
        .markColumn = u"カスタム検索識別ID"_s,
        .idColumn = u"カスタム検索ID"_s,
        .rowQuery = {u"SELECT * From カスタム検索 Where カスタム検索更新ID = "_s},
        .cascade = {{u"DELETE FROM カスタム検索 Where カスタム検索更新ID ="_s}},
    };
    return table;
}

} // namespace customer
