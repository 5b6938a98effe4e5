#include "customer/data/print_tables.h"

using namespace Qt::StringLiterals;
using enum records::KeyedText::Number;

namespace customer {

const records::Cascade& printTablesEmptied()
{
    static const records::Cascade cascade{{u"DELETE FROM ２印刷自由項目内容"_s, None},
                                          {u"DELETE FROM ３印刷納品"_s, None},
                                          {u"DELETE FROM ４印刷件名"_s, None}};
    return cascade;
}

} // namespace customer
