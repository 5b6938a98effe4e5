#include "customer/data/notice.h"

#include "core/data/clock.h"
#include "records/data/row_changes.h"
#include "records/data/schedule.h"
#include "text/dates.h"

using namespace Qt::StringLiterals;

namespace customer {

namespace {

const QString EndingLeases = u"SELECT count(*) as ma1 From リースリスト WHERE 終了日 Like '"_s;
const QString OpenCases = u"SELECT count(*) as ma1 "
                          "FROM 件名 INNER JOIN ユーザー ON ユーザー.ユーザーID = 件名.ユーザーID "
                          "WHERE 判定 ='続行'"_s;

QString counted(const QString& what, qint64 number)
{
    return what + u"： "_s + QString::number(number) + u" 件"_s;
}

} // namespace

QStringList noticeLines(CustomerFile& file)
{
    const QDate today = file.clock.today();
    const QString month = text::formatPlainDate(today).left(7); // yyyy/mm
    const qint64 leases =
        records::readNumber(file, EndingLeases + month + u"%'"_s, u"ma1"_s).value_or(0);
    const qint64 cases = records::readNumber(file, OpenCases, u"ma1"_s).value_or(0);
    return {
        counted(u"続行中の件名"_s, cases),
        counted(u"今月終了リース件数"_s, leases),
        counted(u"今日の予定数"_s, records::countScheduleEntries(file, today)),
        u"一覧は印刷にて確認出来ます。"_s,
    };
}

} // namespace customer
