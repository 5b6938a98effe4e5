#include "programs/support/demo/people.h"
#include "programs/support/demo/sample_file.h"
#include "text/dates.h"

// The sample customer file.
namespace programs::demo {

using namespace Qt::StringLiterals;
using storage::Value;

namespace {

const QString Open = u"続行"_s;
const QString Done = u"完了"_s;

constexpr int CasesPerCustomer = 3;
constexpr int LogsPerCase = 3;

QList<FreeItem> customerItems()
{
    return {{u"紹介者"_s, {u"店頭"_s, u"広告"_s, u"知人"_s, u"展示会"_s}},
            {u"定休日"_s, {u"日曜"_s, u"水曜"_s, u"土日祝"_s, u"年中無休"_s}},
            {u"保守契約"_s, {u"あり"_s, u"なし"_s, u"更新中"_s}},
            {u"駐車場"_s, {u"あり（二台）"_s, u"なし"_s, u"近隣を利用"_s}},
            {u"ﾗﾝｸ"_s, {u"Ａ"_s, u"Ｂ"_s, u"C"_s}}};
}

class CustomerSample {
public:
    CustomerSample(storage::Connection& file, Random& random, Calendar& calendar);

    void addCustomer(int customer);
    std::optional<storage::Error> finish(QHash<QString, int>& lastNumbers);

private:
    void addPersonOrFirm(int customer);
    void addCase(int customer);
    void addLogs(int customer, int caseNumber, QDate opened);
    void addDelivery(int customer);
    void addLease(int customer, int delivery, const Product& product);
    void addFreeItemValues(int customer);
    void addShortcuts(int customer);

    Random& m_random;
    Calendar& m_calendar;
    const QList<FreeItem> m_items = customerItems();
    const QStringList m_staff;
    RowWriter m_customers;
    RowWriter m_cases;
    RowWriter m_logs;
    RowWriter m_deliveries;
    RowWriter m_leases;
    RowWriter m_values;
    RowWriter m_customerFiles;
    RowWriter m_caseFiles;
    QHash<QString, int> m_last;
};

CustomerSample::CustomerSample(storage::Connection& file, Random& random, Calendar& calendar)
    : m_random(random),
      m_calendar(calendar),
      m_staff{u"佐野"_s, u"工藤"_s, u"水野"_s, u"ｱﾙﾊﾞｲﾄ"_s, u"店長"_s},
      m_customers(file, u"ユーザー"_s,
                  {u"ﾕｰｻﾞｰ更新ID"_s, u"ﾕｰｻﾞｰ識別ID"_s,  u"ﾕｰｻﾞｰID"_s,     u"表示名ﾌﾘｶﾞﾅ"_s,
                   u"表示名"_s,      u"ﾕｰｻﾞｰ名ﾌﾘｶﾞﾅ"_s, u"ﾕｰｻﾞｰ名"_s,     u"自宅TEL"_s,
                   u"自宅FAX"_s,     u"自宅住所"_s,     u"会社名ﾌﾘｶﾞﾅ"_s, u"会社名"_s,
                   u"部署"_s,        u"会社TEL"_s,      u"会社FAX"_s,     u"会社住所"_s,
                   u"E-MAIL"_s,      u"URL"_s,          u"備考"_s,        u"Y印字"_s,
                   u"更新日時"_s,    u"最近更新日時"_s}),
      m_cases(file, u"件名"_s,
              {u"件名更新ID"_s, u"件名識別ID"_s, u"ユーザーID"_s, u"件名ID"_s, u"登録日"_s,
               u"予定日"_s, u"件名"_s, u"備考"_s, u"判定"_s, u"完了日"_s, u"K印字"_s, u"更新日時"_s,
               u"最近更新日時"_s}),
      m_logs(file, u"ログ"_s,
             {u"ログ更新ID"_s, u"ログ識別ID"_s, u"ユーザーID"_s, u"件名ID"_s, u"ログID"_s,
              u"登録日"_s, u"記録者"_s, u"Rログ"_s, u"更新日時"_s}),
      m_deliveries(file, u"納品リスト"_s,
                   {u"納品更新ID"_s, u"納品識別ID"_s, u"ユーザーID"_s, u"納品ID"_s, u"納入日"_s,
                    u"ﾒｰｶｰ"_s, u"品名"_s, u"型番"_s, u"ｼﾘｱﾙ"_s, u"定価"_s, u"売値"_s, u"仕切"_s,
                    u"備考"_s, u"更新日時"_s}),
      m_leases(file, u"リースリスト"_s,
               {u"ﾘｰｽ更新ID"_s, u"ﾘｰｽ識別ID"_s, u"ﾘｰｽID"_s, u"納品ID"_s, u"ユーザーID"_s,
                u"ﾘｰｽ名"_s, u"開始日"_s, u"終了日"_s, u"月々支払"_s, u"備考"_s, u"更新日時"_s}),
      m_values(file, u"項目内容"_s,
               {u"項目内容更新ID"_s, u"内容識別ID"_s, u"項目ID"_s, u"ユーザーID"_s,
                u"ﾕｰｻﾞｰ識別ID"_s, u"項目内容"_s, u"更新日時"_s}),
      m_customerFiles(file, u"ユーザー関連ファイル"_s,
                      {u"ﾕｰｻﾞｰ関連更新ID"_s, u"ﾕｰｻﾞｰ関連識別ID"_s, u"ﾕｰｻﾞｰ関連ID"_s, u"ﾕｰｻﾞｰID"_s,
                       u"ﾌｧｲﾙ名"_s, u"場所"_s, u"更新日時"_s}),
      m_caseFiles(file, u"件名関連ファイル"_s,
                  {u"件名関連更新ID"_s, u"件名関連識別ID"_s, u"件名関連ID"_s, u"件名ID"_s,
                   u"ユーザーID"_s, u"ﾌｧｲﾙ名"_s, u"場所"_s, u"更新日時"_s})
{
}

void CustomerSample::addCustomer(int customer)
{
    addPersonOrFirm(customer);
    for (int i = 0; i < CasesPerCustomer; ++i)
        addCase(customer);
    // The first customer always has a lease, so that none of the notice's counts is empty.
    const int deliveries = customer == 1 ? 1 : std::max(0, m_random.below(5) - 2);
    for (int i = 0; i < deliveries; ++i)
        addDelivery(customer);
    addFreeItemValues(customer);
    addShortcuts(customer);
}

void CustomerSample::addPersonOrFirm(int customer)
{
    m_last[u"ユーザー"_s] = customer;
    const bool isFirm = m_random.chance(45);
    const bool hasFirm = isFirm || m_random.chance(15);
    const Place& place = m_random.pick(places());
    const Person person = makePerson(m_random);
    const Firm firm = hasFirm ? makeFirm(m_random) : Firm{};

    const QString personReading = asTyped(m_random, person.reading);
    const QString firmReading = asTyped(m_random, firm.reading);
    const bool hasHome = !isFirm || m_random.chance(20);
    const auto some = [this](int percent, const QString& text) {
        return m_random.chance(percent) ? Value(text) : Value();
    };
    const QString homeTelephone = hasHome
        ? (m_random.chance(40) ? makeMobile(m_random) : makeTelephone(m_random, place))
        : QString();
    const QString page = u"https://www.example.jp/"_s + QString::number(customer) + u'/';

    Row row{customer, 0, customer};
    row += {isFirm ? firmReading : personReading, isFirm ? firm.name : person.name};
    row += {personReading, person.name, textOrNull(homeTelephone)};
    row += {hasHome ? some(25, makeTelephone(m_random, place)) : Value(),
            hasHome ? Value(makeAddress(m_random, place)) : Value()};
    row += {textOrNull(firmReading), textOrNull(firm.name)};
    if (hasFirm) {
        row += {some(50, m_random.pick(departments())), makeTelephone(m_random, place),
                some(70, makeTelephone(m_random, place)), makeAddress(m_random, place)};
    } else {
        row += {Value(), Value(), Value(), Value()};
    }
    row += {some(60, makeMailAddress(m_random, customer)), hasFirm ? some(30, page) : Value(),
            some(30, m_random.pick(customerNotes())), m_random.chance(20) ? 1 : 0};
    const Value changed = m_calendar.lastChange();
    row += {changed, m_random.chance(10) ? Value() : changed};
    m_customers.add(row);
}

void CustomerSample::addCase(int customer)
{
    const int number = ++m_last[u"件名"_s];
    const QDate opened = m_calendar.pastDay(1500);
    const qint64 age = opened.daysTo(m_calendar.today());
    const bool done = m_random.chance(age > 30 ? 85 : 30);
    const QDate finished = opened.addDays(m_random.below(static_cast<int>(age) + 1));
    const bool planned = m_random.chance(done ? 30 : 60);
    const QDate plannedDay =
        done ? finished : m_calendar.today().addDays(m_random.between(-20, 40));
    const Value changed =
        m_calendar.moment(done ? finished : m_calendar.pastDay(static_cast<int>(age)));

    m_cases.add({number, 0, customer, number, text::formatDate(opened),
                 planned ? Value(text::formatDate(plannedDay)) : Value(),
                 m_random.pick(caseTitles()),
                 m_random.chance(40) ? Value(m_random.pick(caseNotes())) : Value(),
                 done ? Done : Open, done ? text::formatDate(finished) : QString(u""_s),
                 m_random.chance(25) ? 1 : 0, changed, changed});
    addLogs(customer, number, opened);
    if (m_random.chance(2)) {
        const int file = ++m_last[u"件名関連"_s];
        const QString name = u"見積書"_s + QString::number(file) + u".pdf"_s;
        m_caseFiles.add({file, 0, file, number, customer, name, u"/srv/share/見積/"_s + name,
                         m_calendar.lastChange()});
    }
}

void CustomerSample::addLogs(int customer, int caseNumber, QDate opened)
{
    QDate day = opened;
    for (int i = 0; i < LogsPerCase; ++i) {
        const int number = ++m_last[u"ログ"_s];
        m_logs.add({number, 0, customer, caseNumber, number, text::formatDate(day),
                    m_random.pick(m_staff), m_random.pick(logTexts()), m_calendar.moment(day)});
        day = std::min(day.addDays(m_random.below(14)), m_calendar.today());
    }
}

void CustomerSample::addDelivery(int customer)
{
    const int number = ++m_last[u"納品"_s];
    const Product& product = m_random.pick(products());
    const QDate day = m_calendar.pastDay(2000);
    m_deliveries.add({number, 0, customer, number, text::formatDate(day), product.maker,
                      product.name, product.model + m_random.digits(3),
                      u"SN"_s + m_random.digits(8), QString::number(product.price),
                      QString::number(product.price * m_random.between(70, 95) / 100),
                      QString::number(product.price * 6 / 10),
                      m_random.chance(20) ? Value(m_random.pick(caseNotes())) : Value(),
                      m_calendar.moment(day)});
    if (customer == 1 || m_random.chance(25))
        addLease(customer, number, product);
}

void CustomerSample::addLease(int customer, int delivery, const Product& product)
{
    const int number = ++m_last[u"リース"_s];
    const QDate today = m_calendar.today();
    // One in eight ends in the present month.
    const int month = customer == 1 || m_random.below(8) == 0 ? 0 : m_random.between(-20, 48);
    const QDate month1 = QDate(today.year(), today.month(), 1).addMonths(month);
    const QDate end = month1.addDays(m_random.below(month1.daysInMonth()));
    const int years = m_random.between(3, 6);
    m_leases.add({number, 0, number, delivery, customer, product.name + u"ﾘｰｽ"_s,
                  text::formatDate(end.addYears(-years).addDays(1)), text::formatDate(end),
                  QString::number(product.price / (years * 12) / 100 * 100 + 500),
                  m_random.chance(30) ? Value(u"再リースの希望あり"_s) : Value(),
                  m_calendar.lastChange()});
}

void CustomerSample::addFreeItemValues(int customer)
{
    for (int item = 1; item <= m_items.size(); ++item) {
        if (!m_random.chance(30))
            continue;
        const int number = ++m_last[u"項目内容"_s];
        m_values.add({number, 0, item, customer, 0, m_random.pick(m_items[item - 1].values),
                      m_calendar.lastChange()});
    }
}

void CustomerSample::addShortcuts(int customer)
{
    if (!m_random.chance(5))
        return;
    const int number = ++m_last[u"ユーザー関連"_s];
    const QString name = u"地図"_s + QString::number(customer) + u".png"_s;
    m_customerFiles.add(
        {number, 0, number, customer, name, u"/srv/share/地図/"_s + name, m_calendar.lastChange()});
}

std::optional<storage::Error> CustomerSample::finish(QHash<QString, int>& lastNumbers)
{
    for (RowWriter* writer : {&m_customers, &m_cases, &m_logs, &m_deliveries, &m_leases, &m_values,
                              &m_customerFiles, &m_caseFiles}) {
        if (auto error = writer->finish())
            return error;
    }
    m_last.remove(u"項目内容"_s); // has no counter
    lastNumbers.insert(m_last);
    return std::nullopt;
}

} // namespace

std::optional<storage::Error> writeCustomerSample(const QString& path, const Size& size)
{
    using storage::schema::Version;
    SampleFile file;
    if (!file.create(path, storage::schema::customerFile(Version::V311)))
        return file.lastError();

    Random random(size.seed);
    Calendar calendar(random, size.today);
    QHash<QString, int> lastNumbers;
    if (auto error =
            writeCommonTables(file.connection(), random, calendar, customerItems(), u"顧客"_s,
                              {u"株式会社"_s, u"東京都"_s, u"ｻｰﾋﾞｽ"_s, u"水曜定休"_s}, lastNumbers))
        return error;
    CustomerSample sample(file.connection(), random, calendar);
    for (int customer = 1; customer <= size.customers; ++customer)
        sample.addCustomer(customer);
    if (auto error = sample.finish(lastNumbers))
        return error;
    return file.finish(lastNumbers, calendar.moment(size.today));
}

} // namespace programs::demo
