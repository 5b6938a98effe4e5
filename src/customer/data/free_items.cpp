#include "customer/data/free_items.h"

using namespace Qt::StringLiterals;
using enum records::KeyedText::Number;

namespace customer {

const records::RecordTable& freeItemTable()
{
    static const records::RecordTable table{
        .name = u"自由項目名"_s,
        .numbering = {u"SELECT Max(項目更新ID) as ma1 From 自由項目名 "_s,
                      u"SELECT * From 自由項目名 Where 項目更新ID = "_s, u"自由項目名"_s},
        .updateIdColumn = u"項目更新ID"_s,
        .markColumn = u"項目識別ID"_s,
        .idColumn = u"項目ID"_s,
        .rowQuery = {u"SELECT * From 自由項目名 Where 項目更新ID = "_s},
        .cascade = {{u"DELETE FROM 自由項目名 Where 項目更新ID ="_s},
                    {u"DELETE FROM 項目内容 Where 項目ID ="_s, Id, u" And 内容識別ID= "_s}},
    };
    return table;
}

const records::Cascade& freeItemValueCascade()
{
    static const records::Cascade cascade{{u"DELETE FROM 項目内容 Where 項目内容更新ID ="_s}};
    return cascade;
}

} // namespace customer
