#include "customer_lists.h"

#include "bare_file.h"
#include "hand_lists.h"
#include "opened_sample.h"

#include "customer/data/case_index.h"
#include "customer/data/cases.h"
#include "customer/data/customer_index.h"
#include "customer/data/customers.h"
#include "customer/data/logs.h"
#include "customer/data/settings.h"
#include "records/data/record_list.h"
#include "text/dates.h"
#include "text/fold.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr double FirstPageLimit = 2.0;
constexpr double Stretch = 50; // milliseconds that a timed run of a quick page takes
constexpr int Records = 900;   // customers and cases that are chosen in turn
const QString Word = u"水"_s;
const QString NoHit = u"どこにもない語"_s;

// The columns that the lists' statements ask for, every value of which is read here.
const QString Customers = uR"(SELECT * FROM "ユーザー")"_s;
const QString KaRowByHand =
    uR"( WHERE corvane_key("表示名ﾌﾘｶﾞﾅ") >= corvane_key('カ') AND corvane_key("表示名ﾌﾘｶﾞﾅ") < corvane_key('サ'))"_s;
const QString CustomerText =
    uR"( WHERE corvane_like(?, "表示名ﾌﾘｶﾞﾅ", "表示名", "ﾕｰｻﾞｰ名ﾌﾘｶﾞﾅ", "ﾕｰｻﾞｰ名", "自宅TEL", )"_s
    + uR"("自宅FAX", "自宅住所", "会社名ﾌﾘｶﾞﾅ", "会社名", "部署", "会社TEL", "会社FAX", "会社住所", )"_s
    + uR"("E-MAIL", "URL", "備考"))"_s;
const QString CustomerOrder = uR"( ORDER BY corvane_key("表示名ﾌﾘｶﾞﾅ"), "ﾕｰｻﾞｰID")"_s;
const QString Cases =
    uR"(SELECT k."件名更新ID", k."件名ID", k."件名識別ID", k."登録日", k."予定日", k."件名", k."備考", )"_s
    + uR"(k."判定", k."K印字", k."更新日時", k."最近更新日時", u.* FROM )"_s;
const QString CasesFirst = Cases
    + uR"("件名" AS k CROSS JOIN "ユーザー" AS u ON u."ﾕｰｻﾞｰ識別ID" = k."件名識別ID" AND u."ﾕｰｻﾞｰID" = k."ユーザーID")"_s;
const QString CustomersFirst = Cases
    + uR"("ユーザー" AS u CROSS JOIN "件名" AS k ON u."ﾕｰｻﾞｰ識別ID" = k."件名識別ID" AND u."ﾕｰｻﾞｰID" = k."ユーザーID")"_s;
const QString CaseOrder = uR"( ORDER BY corvane_fold(k."登録日"), k."件名ID")"_s;
// The same for few rows out of many: they are found first and sorted then.
const QString FewCasesOrder = uR"( ORDER BY +corvane_fold(k."登録日"), k."件名ID")"_s;
const QString CaseText =
    uR"( WHERE corvane_like(?, k."登録日", u."表示名", k."件名", k."備考", k."判定"))"_s;
const QString CaseState = uR"( WHERE corvane_fold(k."判定") = ?)"_s;
const QString CaseDay = uR"( WHERE corvane_fold(k."登録日") = ? OR corvane_fold(k."予定日") = ?)"_s;
const QString Logs = uR"(SELECT * FROM "ログ" WHERE "件名ID" = # AND "ログ識別ID" = 0)"_s;
const QString LogOrder = uR"( ORDER BY corvane_fold("登録日"), "ログID")"_s;
const QString FirstPage = u" LIMIT 100"_s;

// Texts that stand for the question marks of a statement.
QString filled(QString statement, const QString& text)
{
    return statement.replace(u'?', u'\'' + text + u'\'');
}

QString between(const QString& column, QDate first, QDate last)
{
    return u" WHERE "_s + column + u" BETWEEN '"_s + text::formatPlainDate(first)
        + u" 00:00:00.000' AND '"_s + text::formatPlainDate(last) + u" 23:59:59.000'"_s;
}

// Customers whose reading begins with none of the index's characters.
QString otherRow()
{
    QStringList conditions;
    for (const QString& range : u"ｱ-ｵ ｶ-ｺ ｻ-ｿ ﾀ-ﾄ ﾅ-ﾉ ﾊ-ﾎ ﾏ-ﾓ ﾔ-ﾖ ﾗ-ﾛ ﾜ-ﾝ A-Z"_s.split(u' '))
        conditions += u"corvane_like('[!"_s + range + uR"(]%', "表示名ﾌﾘｶﾞﾅ"))"_s;
    return u" WHERE "_s + conditions.join(u" AND "_s);
}

qint64 recordNumber(int turn)
{
    return 1 + turn % Records;
}

core::RecordKey record(int turn)
{
    return {recordNumber(turn), 0, recordNumber(turn), {}};
}

// A number sign stands for the record's number.
QString ofRecord(QString statement, int turn)
{
    return statement.replace(u'#', QString::number(recordNumber(turn)));
}

class CustomerLists {
public:
    CustomerLists(Figures& figures, const QString& path, const QString& password, QDate today)
        : m_figures(figures), m_sample(path, today), m_bare(path, password), m_today(today)
    {
    }

    void measure()
    {
        measureCustomers();
        measureCases();
        measureCaseSearches();
        compare(
            u"page of a case's log entries"_s,
            [this] {
                return openList(m_file, customer::logList(), customer::logsOfCase(m_record, {}), {},
                                m_settings);
            },
            Logs + LogOrder);
    }

private:
    using Opened = std::unique_ptr<records::RecordList>;
    using Order = std::optional<records::ListOrder>;

    // Reads the page as the main screen does: it is opened, measured and read.
    void readPage(const Opened& list, qint64 expected);
    void compare(const QString& name, const std::function<Opened()>& open, const QString& bare);
    void customers(const QString& name, const records::ListFilter& filter, const QString& bare);
    void cases(const QString& name, const records::ListFilter& filter, const QString& bare,
               const Order& clicked = {});
    void measureCustomers();
    void measureCases();
    void measureCaseSearches();

    Figures& m_figures;
    OpenedSample m_sample;
    customer::CustomerFile& m_file = m_sample.file();
    BareFile m_bare;
    QDate m_today;
    core::RecordKey m_record; // another one at every turn, as a user chooses them
    records::Settings m_settings;
};

void CustomerLists::readPage(const Opened& list, qint64 expected)
{
    const qint64 count = list->count();
    if (count != expected || list->rows(0, static_cast<int>(count)).size() != count)
        giveUp(u"A page has "_s + QString::number(count) + u" rows instead of "_s
               + QString::number(expected));
}

void CustomerLists::compare(const QString& name, const std::function<Opened()>& open,
                            const QString& bare)
{
    if (!m_figures.wants(name))
        return;
    const QString page = bare + FirstPage;
    QElapsedTimer timer;
    timer.start();
    const qint64 expected = m_bare.readAll(ofRecord(page, 0));
    const double once = milliseconds(timer);
    int ours = 0;
    int other = 0;
    m_figures.measure(name, FirstPageLimit, [&] {
        return bench::compare(
            [&] {
                m_record = record(++ours);
                readPage(open(), expected);
            },
            [&] { m_bare.readAll(ofRecord(page, ++other)); },
            std::max(1, static_cast<int>(Stretch / once)));
    });
}

void CustomerLists::customers(const QString& name, const records::ListFilter& filter,
                              const QString& bare)
{
    compare(
        name, [&] { return openList(m_file, customer::customerList(), filter, {}, m_settings); },
        Customers + bare);
}

void CustomerLists::cases(const QString& name, const records::ListFilter& filter,
                          const QString& bare, const Order& clicked)
{
    compare(
        name, [&] { return openList(m_file, customer::caseList(), filter, clicked, m_settings); },
        bare);
}

void CustomerLists::measureCustomers()
{
    const records::IndexNode index = customer::customerIndex(m_file);
    const auto node = [&](const QString& caption) {
        return filterOf(index.children, caption, m_settings, m_today);
    };
    customers(u"page of か行"_s, node(u"か行"_s), KaRowByHand + CustomerOrder);
    customers(u"page of 他行"_s, node(u"他行"_s), otherRow() + CustomerOrder);
    customers(u"page of the customers of 最近更新"_s, node(u"最近更新"_s),
              between(uR"("最近更新日時")"_s,
                      m_today.addDays(-m_settings[customer::settings::RecentCustomerDays]), m_today)
                  + uR"( ORDER BY "最近更新日時" DESC)"_s);
    customers(u"page of the customers with a text"_s, customer::customersWithText(Word),
              filled(CustomerText, u'%' + Word + u'%') + CustomerOrder);
}

void CustomerLists::measureCases()
{
    const QList<records::IndexNode> index = customer::caseIndex({});
    const auto node = [&](const QString& caption) {
        return filterOf(index, caption, m_settings, m_today);
    };
    compare(
        u"page of a customer's cases"_s,
        [this] {
            return openList(m_file, customer::caseList(), customer::casesOfCustomer(m_record, {}),
                            {}, m_settings);
        },
        CasesFirst + uR"( WHERE k."ユーザーID" = # AND k."件名識別ID" = 0)"_s + CaseOrder);
    cases(u"page of 全ての件名表示"_s, records::ListFilter{}, CasesFirst + CaseOrder);
    cases(u"page of 続行の件名表示"_s, node(u"続行の件名表示"_s),
          CasesFirst + filled(CaseState, u"続行"_s) + CaseOrder);
    cases(u"page of 完了の件名表示"_s, node(u"完了の件名表示"_s),
          CasesFirst + filled(CaseState, u"完了"_s) + CaseOrder);
    cases(u"page of the cases of 最近一週間"_s, customer::recentCases({m_settings, m_today}),
          CasesFirst
              + between(uR"(k."最近更新日時")"_s,
                        m_today.addDays(-m_settings[customer::settings::RecentCaseDays]), m_today)
              + uR"( ORDER BY k."最近更新日時" DESC)"_s);
    cases(u"page of the cases of a day"_s, customer::casesOfDay(m_today),
          CasesFirst + filled(CaseDay, text::fold(text::formatDate(m_today))) + FewCasesOrder);
    cases(u"page of the cases by 表示名"_s, records::ListFilter{},
          CustomersFirst + uR"( ORDER BY corvane_key(u."表示名"), k."件名ID")"_s,
          orderOf(customer::caseList(), 2, false));
}

void CustomerLists::measureCaseSearches()
{
    cases(u"page of the cases with a text"_s, customer::casesWithText(Word),
          CasesFirst + filled(CaseText, u'%' + Word + u'%') + CaseOrder);
    cases(u"cases with a text that none has"_s, customer::casesWithText(NoHit),
          CasesFirst + filled(CaseText, u'%' + NoHit + u'%') + FewCasesOrder);
}

} // namespace

void measureCustomerLists(Figures& figures, const QString& path, const QString& password,
                          QDate today)
{
    CustomerLists(figures, path, password, today).measure();
}

} // namespace bench
