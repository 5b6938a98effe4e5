#include "searches.h"

#include "bare_file.h"
#include "reading.h"

#include "customer/data/case_index.h"
#include "customer/data/cases.h"
#include "customer/data/customer_index.h"
#include "customer/data/customers.h"

#include <QElapsedTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr double SecondAfterAll = 0.2;
constexpr double CountAfterAll = 0.05;
constexpr double SecondInOrder = 2.5;
constexpr double RestInOrder = 1.2;
constexpr double SearchTime = 20000; // milliseconds
constexpr int PageRows = 100;
constexpr int FewRows = 50; // of a page, so that what is found is more than one of them

const QString Count = u"SELECT count(*)"_s;
const QString BareCustomers =
    uR"( FROM "ユーザー" AS u WHERE corvane_like(?, "表示名ﾌﾘｶﾞﾅ", "表示名", )"_s
    + uR"("ﾕｰｻﾞｰ名ﾌﾘｶﾞﾅ", "ﾕｰｻﾞｰ名", "自宅TEL", "自宅FAX", "自宅住所", "会社名ﾌﾘｶﾞﾅ", )"_s
    + uR"("会社名", "部署", "会社TEL", "会社FAX", "会社住所", "E-MAIL", "URL", "備考"))"_s;
const QString BareCases = uR"( FROM "件名" AS k CROSS JOIN "ユーザー" AS u )"_s
    + uR"(ON u."ﾕｰｻﾞｰ識別ID" = k."件名識別ID" AND u."ﾕｰｻﾞｰID" = k."ユーザーID" )"_s
    + uR"(WHERE corvane_like(?, k."登録日", u."表示名", k."件名", k."備考", k."判定"))"_s;
// In the order of the list's first column, and row by row.
const HandWritten OrderedCustomers{
    uR"(SELECT u."_rowid_"#)"_s + uR"( ORDER BY +corvane_key(u."表示名ﾌﾘｶﾞﾅ"), u."ﾕｰｻﾞｰID")"_s,
    uR"(SELECT u.* FROM "ユーザー" AS u WHERE u."_rowid_" = ?1)"_s};
const HandWritten OrderedCases{uR"(SELECT k."_rowid_", u."_rowid_"#)"_s
                                   + uR"( ORDER BY +corvane_fold(k."登録日"), k."件名ID")"_s,
                               uR"(SELECT k.*, u.* FROM "件名" AS k CROSS JOIN "ユーザー" AS u )"_s
                                   + uR"(WHERE k."_rowid_" = ?1 AND u."_rowid_" = ?2)"_s};
constexpr QChar FoundPart = u'#'; // where the tables and the condition stand

struct Search {
    QString name;
    QString statement;
    int pageRows = 0;
    QString bareCount;    // counts the same rows
    HandWritten bareRows; // reads them
};

Search search(const QString& name, const QString& statement, int pageRows, QString bare,
              const QString& text, HandWritten rows)
{
    bare.replace(u'?', u"'%"_s + text + u"%'"_s);
    rows.statement.replace(FoundPart, bare);
    return {name + text, statement, pageRows, Count + bare, rows};
}

// In the order of the first column.
QString statementOf(const records::ListDescription& list, const records::ListFilter& filter)
{
    return listStatement(list, filter, orderOf(list, 0, false), {});
}

Search customers(const QString& text, int pageRows)
{
    return search(u"customers with "_s,
                  statementOf(customer::customerList(), customer::customersWithText(text)),
                  pageRows, BareCustomers, text, OrderedCustomers);
}

Search cases(const QString& text, int pageRows)
{
    return search(u"cases with "_s,
                  statementOf(customer::caseList(), customer::casesWithText(text)), pageRows,
                  BareCases, text, OrderedCases);
}

class Searches {
public:
    Searches(Figures& figures, const QString& path, const QString& password)
        : m_figures(figures), m_bare(path, password)
    {
        require(m_file.open(path, password), m_file);
    }

    // A search that finds too little to fill its first page in the list's order.
    void measureRare(Search search);
    // One that fills it before much has been looked at.
    void measureCommon(Search search);

private:
    using Rows = storage::Recordset;
    bool isFound(Search* search);
    void openFirstPage(Rows& rows, const Search& search);
    double first(const Search& search);
    double second(const Search& search);
    double count(const Search& search);
    double rest(const Search& search);
    double byHand(const HandWritten& rows) const;
    void turn(Rows& rows, qint64 page);

    Figures& m_figures;
    storage::Connection m_file;
    BareFile m_bare;
};

// Whether the search finds more than one page; in a small sample its pages become shorter.
bool Searches::isFound(Search* search)
{
    Rows rows;
    require(rows.open(search->statement, m_file), m_file);
    const qint64 count = rows.recordCount();
    if (count != m_bare.readNumber(search->bareCount))
        giveUp(search->name + u": other rows than by hand"_s);
    search->pageRows = static_cast<int>(std::clamp<qint64>(count / 3, 1, search->pageRows));
    return count > 1;
}

void Searches::openFirstPage(Rows& rows, const Search& search)
{
    rows.setPageSize(search.pageRows);
    require(rows.open(search.statement, m_file), m_file);
    require(readRows(rows, search.pageRows) == search.pageRows, m_file);
}

void Searches::turn(Rows& rows, qint64 page)
{
    require(rows.setAbsolutePage(page), m_file);
    require(readRows(rows, rows.pageSize()) > 0, m_file);
}

double Searches::first(const Search& search)
{
    QElapsedTimer timer;
    timer.start();
    Rows rows;
    openFirstPage(rows, search);
    return milliseconds(timer);
}

// Straight after the first page.
double Searches::second(const Search& search)
{
    Rows rows;
    openFirstPage(rows, search);
    QElapsedTimer timer;
    timer.start();
    turn(rows, 2);
    return milliseconds(timer);
}

double Searches::count(const Search& search)
{
    Rows rows;
    openFirstPage(rows, search);
    QElapsedTimer timer;
    timer.start();
    require(rows.recordCount() >= search.pageRows, m_file);
    return milliseconds(timer);
}

double Searches::rest(const Search& search)
{
    Rows rows;
    openFirstPage(rows, search);
    QElapsedTimer timer;
    timer.start();
    turn(rows, 2);
    const qint64 pages = rows.pageCount();
    for (qint64 page = 3; page <= pages; ++page)
        turn(rows, page);
    return milliseconds(timer);
}

double Searches::byHand(const HandWritten& rows) const
{
    QElapsedTimer timer;
    timer.start();
    require(m_bare.read(rows, SearchTime).has_value(), m_file);
    return milliseconds(timer);
}

void Searches::measureRare(Search search)
{
    const QString second = search.name + u": second page against the first"_s;
    const QString count = search.name + u": count against the first page"_s;
    if (!m_figures.wantsAnyOf({second, count}) || !isFound(&search))
        return;
    const std::vector<double> times =
        medians({[&] { return first(search); }, [&] { return this->second(search); },
                 [&] { return this->count(search); }});
    m_figures.measure(second, SecondAfterAll, [&] { return Times{times[1], times[0]}; });
    m_figures.measure(count, CountAfterAll, [&] { return Times{times[2], times[0]}; });
}

void Searches::measureCommon(Search search)
{
    const QString second = search.name + u": second page against the first"_s;
    const QString rest =
        search.name + u": second page, count and other pages against a bare count"_s;
    if (!m_figures.wantsAnyOf({second, rest}) || !isFound(&search))
        return;
    const std::vector<double> times =
        medians({[&] { return first(search); }, [&] { return this->second(search); },
                 [&] { return this->rest(search); }, [&] { return byHand({search.bareCount}); },
                 [&] { return count(search); }, [&] { return byHand(search.bareRows); }});
    m_figures.measure(second, SecondInOrder, [&] { return Times{times[1], times[0]}; });
    m_figures.measure(rest, RestInOrder, [&] { return Times{times[2], times[3]}; });
    // How that divides: all rows are found; what is left finds the second page before them, on the
    // way, and reads the rows of each page.
    const double bare = times[3];
    m_figures.inform(rest + u": finding all rows (for information)"_s, times[4] / bare);
    m_figures.inform(rest + u": second page and reading (for information)"_s,
                     (times[2] - times[4]) / bare);
    m_figures.inform(rest + u": both by hand, row by row (for information)"_s, times[5] / bare);
}

} // namespace

void measureSearches(Figures& figures, const QString& path, const QString& password)
{
    Searches searches(figures, path, password);
    // Held by two of a thousand and less, and by two to four of a hundred.
    searches.measureRare(customers(u"-777"_s, FewRows));
    searches.measureRare(cases(u"2024/02/29"_s, FewRows));
    searches.measureCommon(customers(u"石川"_s, PageRows));
    searches.measureCommon(customers(u"見積"_s, PageRows));
    searches.measureCommon(cases(u"商店"_s, PageRows));
    searches.measureCommon(cases(u"冷蔵"_s, PageRows));
}

} // namespace bench
