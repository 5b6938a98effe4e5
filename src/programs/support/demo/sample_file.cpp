#include "programs/support/demo/sample_file.h"

#include "core/data/database_password.h"
#include "programs/support/demo/words.h"
#include "text/dates.h"

namespace programs::demo {

using namespace Qt::StringLiterals;
using storage::Error;
using storage::Value;

QDate Calendar::pastDay(int days)
{
    const int nearer = m_random.below(days + 1);
    return m_today.addDays(-std::min(nearer, m_random.below(days + 1)));
}

Value Calendar::moment(QDate day)
{
    const int first = day < m_today ? 9 * 3600 : 0;
    const int seconds = first + m_random.below(9 * 3600);
    const QTime time = QTime(0, 0).addMSecs(seconds * 1000 + m_random.below(1000));
    return Value(text::civil(day, time));
}

Value textOrNull(const QString& text)
{
    return text.isEmpty() ? Value() : Value(text);
}

bool SampleFile::create(const QString& path, const storage::schema::Definition& definition)
{
    m_definition = definition;
    storage::schema::Definition withoutIndexes = definition;
    withoutIndexes.indexes.clear();
    return m_file.create(path, QString::fromUtf16(core::DatabasePassword), withoutIndexes)
        && m_file.begin();
}

std::optional<Error> SampleFile::finish(const QHash<QString, int>& lastNumbers, const Value& moment)
{
    QStringList names = lastNumbers.keys();
    names.sort();
    QString update = u"UPDATE 最新発番 SET "_s;
    for (const QString& name : std::as_const(names))
        update += name + u" = "_s + QString::number(lastNumbers[name]) + u", "_s;
    update += u"更新日時 = #"_s + moment.toText().left(19) + u"# WHERE 発番ID = 1"_s;

    if (m_file.execute(update) && m_file.commit() && m_file.bringUpToDate(m_definition))
        return std::nullopt;
    return m_file.lastError();
}

namespace {

std::optional<Error> writeFreeItems(storage::Connection& file, Calendar& calendar,
                                    const QList<FreeItem>& items)
{
    RowWriter writer(file, u"自由項目名"_s,
                     {u"項目更新ID"_s, u"項目識別ID"_s, u"項目ID"_s, u"項目名"_s, u"順位"_s,
                      u"通常表示"_s, u"印字表示"_s, u"更新日時"_s});
    for (int number = 1; number <= items.size(); ++number) {
        const QString printed = number % 4 == 0 ? u"しない"_s : u"する"_s;
        writer.add({number, 0, number, items[number - 1].name, number, u"する"_s, printed,
                    calendar.lastChange()});
    }
    return writer.finish();
}

std::optional<Error> writeSearches(storage::Connection& file, Calendar& calendar,
                                   const QString& kind, const QStringList& searches)
{
    RowWriter writer(file, u"カスタム検索"_s,
                     {u"カスタム検索更新ID"_s, u"カスタム検索識別ID"_s, u"カスタム検索ID"_s,
                      u"種別"_s, u"文字列"_s, u"順位"_s, u"更新日時"_s});
    for (int number = 1; number <= searches.size(); ++number)
        writer.add({number, 0, number, kind, searches[number - 1], number, calendar.lastChange()});
    return writer.finish();
}

std::optional<Error> writeSchedule(storage::Connection& file, Random& random, Calendar& calendar,
                                   int* last)
{
    RowWriter writer(file, u"予定"_s,
                     {u"予定更新ID"_s, u"予定識別ID"_s, u"予定ID"_s, u"日付"_s, u"時刻"_s,
                      u"予定"_s, u"更新日時"_s});
    int number = 0;
    for (int day = -30; day <= 30; ++day) {
        const QString date = text::formatDate(calendar.today().addDays(day));
        const int entries = day == 0 ? 3 : random.below(4);
        for (int entry = 0; entry < entries; ++entry) {
            const QTime time = random.chance(20)
                ? QTime(0, 0)
                : QTime{random.between(8, 18), random.below(4) * 15};
            ++number;
            writer.add({number, 0, number, date, text::formatTime(time),
                        random.pick(appointments()), calendar.lastChange()});
        }
    }
    *last = number;
    return writer.finish();
}

} // namespace

std::optional<Error> writeCommonTables(storage::Connection& file, Random& random,
                                       Calendar& calendar, const QList<FreeItem>& items,
                                       const QString& searchKind, const QStringList& searches,
                                       QHash<QString, int>& lastNumbers)
{
    if (auto error = writeFreeItems(file, calendar, items))
        return error;
    if (auto error = writeSearches(file, calendar, searchKind, searches))
        return error;
    lastNumbers[u"自由項目名"_s] = static_cast<int>(items.size());
    lastNumbers[u"カスタム検索"_s] = static_cast<int>(searches.size());
    return writeSchedule(file, random, calendar, &lastNumbers[u"予定"_s]);
}

} // namespace programs::demo
