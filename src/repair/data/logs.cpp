#include "repair/data/logs.h"

using namespace Qt::StringLiterals;

namespace repair {

namespace {

const QString RowQuery = u"Select * From 修理ログ Where 修理ログ更新ID ="_s;

} // namespace

const core::LogTable& logTable()
{
    static const core::LogTable table{RowQuery, u"記録日"_s, u"記録者"_s, u"ログ"_s};
    return table;
}

} // namespace repair
