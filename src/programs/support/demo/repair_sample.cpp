#include "programs/support/demo/people.h"
#include "programs/support/demo/sample_file.h"
#include "text/dates.h"

// The sample repair file.
namespace programs::demo {

using namespace Qt::StringLiterals;
using storage::Error;
using storage::Value;

namespace {

const QStringList Staff = u"佐野 健|工藤 律子|水野 隆|馬場 遥|ﾉﾑﾗ|関 駿"_s.split(u'|');

QList<FreeItem> repairItems()
{
    return {{u"代替機"_s, {u"貸出中"_s, u"不要"_s}},
            {u"保証"_s, {u"期間内"_s, u"期間外"_s, u"延長保証"_s}},
            {u"預り場所"_s, {u"棚Ａ"_s, u"棚B"_s, u"倉庫"_s}}};
}

QStringList makers()
{
    QStringList names;
    for (const Product& product : products())
        names.append(product.maker);
    names.removeDuplicates();
    return names;
}

class RepairSample {
public:
    RepairSample(storage::Connection& file, Random& random, Calendar& calendar);

    void addRepair(int repair);
    std::optional<Error> finish(QHash<QString, int>& lastNumbers);

private:
    Row customerFields();
    void addLines(int repair);
    void addLogs(int repair, QDate received);
    void addExtras(int repair);

    Random& m_random;
    Calendar& m_calendar;
    const QList<FreeItem> m_items = repairItems();
    RowWriter m_repairs;
    RowWriter m_lines;
    RowWriter m_logs;
    RowWriter m_files;
    RowWriter m_values;
    QHash<QString, int> m_last;
};

RepairSample::RepairSample(storage::Connection& file, Random& random, Calendar& calendar)
    : m_random(random),
      m_calendar(calendar),
      m_repairs(file, u"修理"_s,
                {u"修理更新ID"_s, u"修理識別ID"_s,  u"修理ID"_s,     u"状況"_s,     u"区分"_s,
                 u"受付日"_s,     u"お客様名"_s,    u"自宅TEL"_s,    u"自宅住所"_s, u"会社名"_s,
                 u"会社TEL"_s,    u"会社住所"_s,    u"メーカー名"_s, u"品名"_s,     u"型番"_s,
                 u"シリアル"_s,   u"付属品"_s,      u"見積納期"_s,   u"故障内容"_s, u"受付者"_s,
                 u"担当者"_s,     u"受付番号"_s,    u"有無償"_s,     u"処置内容"_s, u"仕切"_s,
                 u"売値"_s,       u"入金"_s,        u"備考"_s,       u"完了日"_s,   u"S印字"_s,
                 u"更新日時"_s,   u"最近更新日時"_s}),
      m_lines(file, u"修理詳細"_s,
              {u"詳細更新ID"_s, u"詳細識別ID"_s, u"詳細ID"_s, u"修理ID"_s, u"順位"_s, u"名称"_s,
               u"部番"_s, u"部品定価"_s, u"部品売値"_s, u"部品仕切"_s, u"更新日時"_s}),
      m_logs(file, u"修理ログ"_s,
             {u"修理ログ更新ID"_s, u"修理ログ識別ID"_s, u"修理ログID"_s, u"修理ID"_s, u"記録日"_s,
              u"記録者"_s, u"ログ"_s, u"更新日時"_s}),
      m_files(file, u"修理関連ファイル"_s,
              {u"修理関連更新ID"_s, u"修理関連識別ID"_s, u"修理関連ID"_s, u"修理ID"_s, u"ﾌｧｲﾙ名"_s,
               u"場所"_s, u"更新日時"_s}),
      m_values(file, u"項目内容"_s,
               {u"項目内容更新ID"_s, u"修理ID"_s, u"修理識別ID"_s, u"項目ID"_s, u"内容識別ID"_s,
                u"項目内容"_s, u"更新日時"_s})
{
}

// お客様名, 自宅TEL, 自宅住所, 会社名, 会社TEL, 会社住所
Row RepairSample::customerFields()
{
    const Place& place = m_random.pick(places());
    const bool isFirm = m_random.chance(40);
    Row fields;
    if (isFirm && m_random.chance(30))
        fields += {Value(), Value(), Value()};
    else
        fields += {makePerson(m_random).name, makeMobile(m_random), makeAddress(m_random, place)};
    if (isFirm)
        fields +=
            {makeFirm(m_random).name, makeTelephone(m_random, place), makeAddress(m_random, place)};
    else
        fields += {Value(), Value(), Value()};
    return fields;
}

void RepairSample::addRepair(int repair)
{
    m_last[u"修理"_s] = repair;
    const QDate received = m_calendar.pastDay(1000);
    const int age = static_cast<int>(received.daysTo(m_calendar.today()));
    const bool done = m_random.chance(age > 21 ? 92 : 25);
    const QDate finished = received.addDays(m_random.below(std::min(age, 30) + 1));
    const bool charged = m_random.chance(75);
    const bool unpaid = charged && m_random.chance(done ? 6 : 80);
    const Product& product = m_random.pick(products());
    const int price = product.price * m_random.between(5, 30) / 100;
    const Value changed = m_calendar.moment(done ? finished : m_calendar.pastDay(age));

    Row row{repair, 0, repair, done ? u"完了"_s : u"続行"_s};
    row += {m_random.chance(65) ? u"持込"_s : u"出張"_s, text::formatDate(received)};
    row += customerFields();
    row += {product.maker,
            product.name,
            product.model + m_random.digits(3),
            u"SN"_s + m_random.digits(8),
            m_random.pick(accessories()),
            m_random.chance(50) ? u"見積連絡:必要"_s : u"見積連絡:不必要"_s};
    row += {m_random.pick(faults()), m_random.pick(Staff), m_random.pick(Staff),
            u"R-"_s + QString::number(10000 + repair), charged ? u"有償"_s : u"無償"_s};
    row += {done ? Value(m_random.pick(treatments())) : Value(), QString::number(price * 6 / 10),
            QString::number(charged ? price : 0), unpaid ? u"未入"_s : u"済み"_s};
    row += {m_random.chance(25) ? Value(m_random.pick(caseNotes())) : Value(),
            done ? text::formatDate(finished) : QString(u""_s), m_random.chance(20) ? 1 : 0,
            changed, m_random.chance(10) ? Value() : changed};
    m_repairs.add(row);

    addLines(repair);
    addLogs(repair, received);
    addExtras(repair);
}

void RepairSample::addLines(int repair)
{
    const int count = m_random.below(4);
    for (int place = 1; place <= count; ++place) {
        const int number = ++m_last[u"詳細"_s];
        const Product& part = m_random.pick(parts());
        m_lines.add({number, 0, number, repair, place, part.name, part.model,
                     QString::number(part.price), QString::number(part.price * 9 / 10),
                     QString::number(part.price * 6 / 10), m_calendar.lastChange()});
    }
}

void RepairSample::addLogs(int repair, QDate received)
{
    QDate day = received;
    const int count = m_random.between(1, 3);
    for (int i = 0; i < count; ++i) {
        const int number = ++m_last[u"ログ"_s];
        m_logs.add({number, 0, number, repair, text::formatDate(day), m_random.pick(Staff),
                    m_random.pick(logTexts()), m_calendar.moment(day)});
        day = std::min(day.addDays(m_random.below(6)), m_calendar.today());
    }
}

void RepairSample::addExtras(int repair)
{
    for (int item = 1; item <= m_items.size(); ++item) {
        if (!m_random.chance(30))
            continue;
        const int number = ++m_last[u"項目内容"_s];
        m_values.add({number, repair, 0, item, 0, m_random.pick(m_items[item - 1].values),
                      m_calendar.lastChange()});
    }
    if (m_random.chance(4)) {
        const int number = ++m_last[u"修理関連"_s];
        m_files.add({number, 0, number, repair, u"写真"_s + QString::number(repair) + u".jpg"_s,
                     u"/srv/share/修理写真"_s, m_calendar.lastChange()});
    }
}

std::optional<Error> RepairSample::finish(QHash<QString, int>& lastNumbers)
{
    for (RowWriter* writer : {&m_repairs, &m_lines, &m_logs, &m_files, &m_values}) {
        if (auto error = writer->finish())
            return error;
    }
    m_last.remove(u"項目内容"_s); // has no counter
    lastNumbers.insert(m_last);
    return std::nullopt;
}

std::optional<Error> writeStaff(storage::Connection& file, Random& random, Calendar& calendar)
{
    RowWriter writer(file, u"担当者"_s,
                     {u"担当者更新ID"_s, u"担当識別ID"_s, u"担当ID"_s, u"担当者"_s, u"TEL"_s,
                      u"E-MAIL"_s, u"更新日時"_s});
    for (int number = 1; number <= Staff.size(); ++number)
        writer.add({number, 0, number, Staff[number - 1], makeMobile(random),
                    makeMailAddress(random, number), calendar.lastChange()});
    return writer.finish();
}

std::optional<Error> writeServiceCentres(storage::Connection& file, Random& random,
                                         Calendar& calendar, int* last)
{
    RowWriter writer(file, u"修理先"_s,
                     {u"修理先更新ID"_s, u"修理先識別ID"_s, u"修理先ID"_s, u"メーカー名"_s,
                      u"修理先"_s, u"住所"_s, u"TEL"_s, u"FAX"_s, u"E-MAIL"_s, u"担当者"_s,
                      u"処理方法"_s, u"決済方法"_s, u"備考"_s, u"更新日時"_s});
    int number = 0;
    for (const QString& maker : makers()) {
        const Place& place = random.pick(places());
        ++number;
        writer.add({number, 0, number, maker, maker + u"サービスセンター"_s,
                    makeAddress(random, place), makeTelephone(random, place),
                    makeTelephone(random, place), makeMailAddress(random, number),
                    makePerson(random).name, random.chance(60) ? u"送付"_s : u"出張依頼"_s,
                    random.chance(70) ? u"月末締め翌月払い"_s : u"代金引換"_s, Value(),
                    calendar.lastChange()});
    }
    *last = number;
    return writer.finish();
}

QString ownCompany()
{
    return u"UPDATE 自社 SET 自社名 = 'コルヴァン電器店', 自社住所 = '東京都千代田区夕凪町1-2-3', "
           u"自社TEL = '03-0123-4567', 自社FAX = '03-0123-4568', 自社MAIL = 'info@example.jp', "
           u"自社URL = 'https://www.example.jp/' WHERE 自社ID = 1"_s;
}

} // namespace

std::optional<Error> writeRepairSample(const QString& path, const Size& size)
{
    using storage::schema::Version;
    SampleFile file;
    if (!file.create(path, storage::schema::repairFile(Version::V311)))
        return file.lastError();

    Random random(size.seed + 1);
    Calendar calendar(random, size.today);
    QHash<QString, int> lastNumbers;
    storage::Connection& connection = file.connection();
    if (auto error = writeCommonTables(connection, random, calendar, repairItems(), u"修理"_s,
                                       {u"ハルタ"_s, u"出張"_s, u"電源"_s}, lastNumbers))
        return error;
    lastNumbers[u"担当者"_s] = static_cast<int>(Staff.size());
    if (auto error = writeStaff(connection, random, calendar))
        return error;
    if (auto error = writeServiceCentres(connection, random, calendar, &lastNumbers[u"修理先"_s]))
        return error;
    if (!connection.execute(ownCompany()))
        return file.lastError();

    RepairSample sample(connection, random, calendar);
    for (int repair = 1; repair <= size.repairs; ++repair)
        sample.addRepair(repair);
    if (auto error = sample.finish(lastNumbers))
        return error;
    return file.finish(lastNumbers, calendar.moment(size.today));
}

} // namespace programs::demo
