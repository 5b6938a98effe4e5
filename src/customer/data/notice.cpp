#include "customer/data/notice.h"

#include "core/data/clock.h"
#include "core/data/row_changes.h"
#include "core/data/schedule.h"
#include "customer/data/counts.h"
#include "text/dates.h"

using namespace Qt::StringLiterals;

namespace customer {

namespace {

const QString EndingLeases = u"SELECT count(*) as ma1 From リースリスト WHERE 終了日 Like '"_s;

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
        core::readNumber(file, EndingLeases + month + u"%'"_s, u"ma1"_s).value_or(0);
    return {
        counted(u"続行中の件名"_s, countOpenCases(file)),
        counted(u"今月終了リース件数"_s, leases),
        counted(u"今日の予定数"_s, core::countScheduleEntries(file, today)),
        u"一覧は印刷にて確認出来ます。"_s,
    };
}

} // namespace customer
