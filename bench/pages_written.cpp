#include "pages_written.h"

#include "bare_file.h"
#include "opened_sample.h"
#include "scratch_copy.h"
#include "write_counter.h"

#include "core/data/clock.h"
#include "customer/data/cases.h"
#include "customer/data/customers.h"
#include "customer/data/logs.h"
#include "text/dates.h"

#include <algorithm>
#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr int Adds = 50;
constexpr int HighNumber = 100'000'000; // above the numbers of a sample

struct NumberedTable {
    QString name;
    QString autoNumber;
    QString number;
};
const NumberedTable Tables[] = {{u"ユーザー"_s, u"ﾕｰｻﾞｰ更新ID"_s, u"ﾕｰｻﾞｰID"_s},
                                {u"件名"_s, u"件名更新ID"_s, u"件名ID"_s},
                                {u"ログ"_s, u"ログ更新ID"_s, u"ログID"_s}};
const QString QuotedColumns = u"SELECT '\"' || name || '\"' FROM pragma_table_info('"_s;
const QString CountOfCustomers = uR"(SELECT count(*) FROM "ユーザー")"_s;
const QString Begin = u"BEGIN IMMEDIATE"_s;
const QString Commit = u"COMMIT"_s;

struct Add {
    QString name;
    double limit;
    std::function<records::SaveResult(customer::CustomerFile& file, const core::RecordKey& pattern)>
        save;
};

// The customer and the case for which all cases and all log entries are added.
core::RecordKey owner()
{
    return {1, 0, 1, {}};
}

// A record like another one: what a form would hand over.
records::SaveResult addLike(customer::CustomerFile& file, const records::RecordTable& table,
                            const core::RecordKey& pattern, const QList<core::RecordKey>& parents,
                            const QStringList& columns, const QString& day = {})
{
    const std::optional<records::Record> like = readRecord(file, table, pattern);
    if (!like)
        giveUp(u"There is no record to copy."_s);
    records::FieldValues fields;
    for (const QString& column : columns)
        fields.append({column, like->value(column)});
    if (!day.isEmpty())
        records::setField(fields, day, text::formatDate(file.clock.today()));
    return addRecord(file, table, parents, fields);
}

const Add AllAdds[] = {
    {u"pages written by the add of a customer"_s, 12,
     [](customer::CustomerFile& file, const core::RecordKey& pattern) {
         return addLike(file, customer::customerTable(), pattern, {},
                        customer::customerTexts() + QStringList{u"Y印字"_s});
     }},
    {u"pages written by the add of a case"_s, 22,
     [](customer::CustomerFile& file, const core::RecordKey& pattern) {
         return addLike(file, customer::caseTable(), pattern, {owner()},
                        {u"登録日"_s, u"件名"_s, u"備考"_s, u"判定"_s, u"K印字"_s, u"予定日"_s},
                        u"登録日"_s);
     }},
    {u"pages written by the add of a log entry"_s, 10,
     [](customer::CustomerFile& file, const core::RecordKey& pattern) {
         return addLike(file, customer::logTable(), pattern, {owner()},
                        {u"登録日"_s, u"記録者"_s, u"Rログ"_s}, u"登録日"_s);
     }}};

// Adds copies of every twentieth row, under numbers of their own. The pages of indexes that were
// just built are full and are divided by the first rows that come into them; those of a file in use
// have room.
void makeRoom(const BareFile& bare)
{
    bare.readAll(Begin);
    for (const NumberedTable& table : Tables) {
        const QString names =
            bare.texts(QuotedColumns + table.name + u"') WHERE pk = 0"_s).join(u", "_s);
        const QString number = u'"' + table.number + u'"';
        QString values = names;
        values.replace(number, number + u" + "_s + QString::number(HighNumber));
        bare.readAll(u"INSERT INTO \""_s + table.name + u"\" ("_s + names + u") SELECT "_s + values
                     + u" FROM \""_s + table.name + u"\" WHERE \""_s + table.autoNumber
                     + u"\" % 20 = 0"_s);
    }
    bare.readAll(Commit);
}

// Pages that each add writes of records like those of the file, which go to other places in its
// indexes each; in rising order.
std::vector<double> pagesWritten(const QString& path, qint64 pageSize, qint64 customers,
                                 QDate today, const Add& add)
{
    const WriteCounter counter;
    OpenedSample sample(path, today);
    std::vector<double> pages;
    for (int turn = 0; turn < Adds; ++turn) {
        const qint64 number = 1 + turn * (customers / Adds);
        const qint64 before = counter.bytes();
        if (add.save(sample.file(), {number, 0, number, {}}) != records::SaveResult::Saved)
            giveUp(sample.file().connection.lastError().message);
        pages.push_back(static_cast<double>(counter.bytes() - before)
                        / static_cast<double>(pageSize));
    }
    std::ranges::sort(pages);
    return pages;
}

} // namespace

void measurePagesWritten(Figures& figures, const QString& path, const QString& password,
                         QDate today)
{
    if (std::ranges::none_of(AllAdds, [&](const Add& add) { return figures.wants(add.name); }))
        return;
    const ScratchCopy copy(path, u"written"_s);
    qint64 pageSize = 0;
    qint64 customers = 0;
    {
        const BareFile bare(copy.path(), password);
        customers = bare.readNumber(CountOfCustomers);
        makeRoom(bare);
        pageSize = bare.readNumber(u"PRAGMA page_size"_s);
    }
    for (const Add& add : AllAdds) {
        if (!figures.wants(add.name))
            continue;
        const auto pages = pagesWritten(copy.path(), pageSize, customers, today, add);
        QStringList all;
        for (const double count : pages)
            all += QString::number(count);
        // The lower quartile is what an add has to write. Adds that come upon a full page write
        // its neighbours as well, how many of them is chance.
        figures.report(add.name, pages[pages.size() / 4], add.limit, all.join(u' '));
    }
}

} // namespace bench
