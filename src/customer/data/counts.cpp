#include "customer/data/counts.h"

#include "core/data/row_changes.h"

using namespace Qt::StringLiterals;

namespace customer {

namespace {

const QString Customers = u"SELECT count(*) as ma1 FROM ユーザー"_s;
const QString Cases = u"SELECT count(*) as ma2 FROM 件名"_s;
const QString Logs = u"SELECT count(*) as ma3 FROM ログ"_s;
const QString OpenCases = u"SELECT count(*) as ma1 "_s
    + u"FROM 件名 INNER JOIN ユーザー ON ユーザー.ユーザーID = 件名.ユーザーID "_s
    + u"WHERE 判定 ='続行'"_s;

} // namespace

qint64 countCustomers(CustomerFile& file)
{
    return core::readNumber(file, Customers, u"ma1"_s).value_or(0);
}

qint64 countCases(CustomerFile& file)
{
    return core::readNumber(file, Cases, u"ma2"_s).value_or(0);
}

qint64 countLogs(CustomerFile& file)
{
    return core::readNumber(file, Logs, u"ma3"_s).value_or(0);
}

qint64 countOpenCases(CustomerFile& file)
{
    return core::readNumber(file, OpenCases, u"ma1"_s).value_or(0);
}

} // namespace customer
