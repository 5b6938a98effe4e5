#include "adding.h"
#include "bare_file.h"
#include "customer_lists.h"
#include "figures.h"
#include "list_pages.h"
#include "pages_written.h"
#include "positions.h"
#include "reading.h"
#include "searches.h"
#include "standing_reader.h"
#include "whole_file.h"

#include "core/data/database_password.h"
#include "programs/support/demo/sample_file.h"
#include "programs/support/templates.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>

// Compares reading and adding through the storage surface with hand-written statements on the bare
// engine.

using namespace Qt::StringLiterals;
using bench::BareFile;
using bench::Figures;
using bench::readRows;
using bench::require;
using bench::Times;

namespace {

const QString SearchedColumns =
    u"表示名ﾌﾘｶﾞﾅ 表示名 ﾕｰｻﾞｰ名ﾌﾘｶﾞﾅ ﾕｰｻﾞｰ名 自宅TEL 自宅FAX 自宅住所 "
    u"会社名ﾌﾘｶﾞﾅ 会社名 部署 会社TEL 会社FAX 会社住所 E-MAIL URL 備考"_s;
// Found nowhere; a word of kanji and words without one are looked for in different ways.
const QString NoHit = u"%どこにもない語%"_s;
const QString NoHitKana = u"%ポラリペヌ%"_s;
const QString NoHitLetters = u"%Quxzyw%"_s;

const QString All = u"SELECT * FROM ユーザー"_s;
const QString KanaOrder = u" ORDER BY ユーザー.表示名ﾌﾘｶﾞﾅ ,ユーザー.ﾕｰｻﾞｰID"_s;
const QString MeasuredKaRow = All + u" WHERE 表示名ﾌﾘｶﾞﾅ Like '[ｶ-ｺ]%'"_s + KanaOrder;
const QString BareAll = u"SELECT * FROM \"ユーザー\""_s;
const QString BareKanaOrder = u" ORDER BY corvane_key(\"表示名ﾌﾘｶﾞﾅ\"), \"ﾕｰｻﾞｰID\""_s;
const QString BareKaRow =
    u" FROM \"ユーザー\" NOT INDEXED WHERE corvane_like('[ｶ-ｺ]%', \"表示名ﾌﾘｶﾞﾅ\")"_s;
const QString BarePage = u" LIMIT 256"_s;

constexpr int PageRows = 256;
const QDate Today(2026, 4, 1); // for which the sample is made

// The searched columns, each between these marks.
QString searchedColumns(QChar open, QChar close, const QString& between)
{
    QStringList columns;
    for (const QString& column : SearchedColumns.split(u' '))
        columns += open + column + close;
    return columns.join(between);
}

QString search(const QString& pattern)
{
    return All + u" WHERE ("_s + searchedColumns(u'[', u']', u" & "_s) + u" ) Like '"_s + pattern
        + u'\'';
}

QString bareSearch()
{
    return u"SELECT count(*) FROM \"ユーザー\" WHERE corvane_like('"_s + NoHit + u"', "_s
        + searchedColumns(u'"', u'"', u", "_s) + u')';
}

QString bareReadOfSearched()
{
    return u"SELECT "_s + searchedColumns(u'"', u'"', u", "_s) + u" FROM \"ユーザー\""_s;
}

void readPage(storage::Connection& file, const QString& statement, bool counted)
{
    storage::Recordset rows;
    rows.setPageSize(PageRows);
    require(rows.open(statement, file), file);
    if (counted)
        require(rows.recordCount() > PageRows, file);
    require(readRows(rows, PageRows) == PageRows, file);
}

void readEverything(storage::Connection& file, const QString& statement, qint64 expected)
{
    storage::Recordset rows;
    require(rows.open(statement, file), file);
    require(readRows(rows, expected + 1) == expected, file);
}

struct Files {
    QString encrypted;
    QString plain;
};

// The sample of that many customers, made when it is not there yet.
Files prepareFiles(const QString& folder, int customers, const QString& password)
{
    const QString base = QDir(folder).filePath(u"customers-"_s + QString::number(customers));
    const Files files{base + u".mdb"_s, base + u"-plain.mdb"_s};
    if (programs::makeFolder(folder))
        bench::giveUp(folder + u" cannot be made."_s);
    if (!QFile::exists(files.encrypted)) {
        programs::demo::Size size;
        size.customers = customers;
        size.today = Today;
        if (const auto error = programs::demo::writeCustomerSample(files.encrypted, size)) {
            QFile::remove(files.encrypted);
            bench::giveUp(error->message);
        }
        QFile::remove(files.plain);
    }
    if (!QFile::exists(files.plain))
        bench::writePlainCopy(files.encrypted, password, files.plain);
    return files;
}

void measureStorage(Figures& figures, const Files& files, const QString& password, qint64 customers)
{
    storage::Connection file;
    require(file.open(files.encrypted, password), file);
    const BareFile bare(files.encrypted, password);

    figures.measure(u"first page in kana order"_s, 1.5, [&] {
        return bench::compare([&] { readPage(file, All + KanaOrder, false); },
                              [&] { bare.readAll(BareAll + BareKanaOrder + BarePage); }, 50);
    });
    figures.measure(u"all columns of all rows"_s, 1.3, [&] {
        return bench::compare([&] { readEverything(file, All, customers); },
                              [&] { bare.readAll(BareAll); });
    });
    const std::pair<QString, QString> searches[] = {
        {u"search of the whole record"_s, NoHit},
        {u"search of the whole record for kana"_s, NoHitKana},
        {u"search of the whole record for letters"_s, NoHitLetters}};
    for (const auto& [name, pattern] : searches) {
        const QString statement = search(pattern);
        figures.measure(name, 0.8, [&] {
            return bench::compare([&] { readEverything(file, statement, 0); },
                                  [&] { bare.readAll(bareReadOfSearched()); });
        });
    }
    figures.measure(u"か行 page with its count"_s, 0.1, [&] {
        return bench::compare([&] { readPage(file, MeasuredKaRow, true); },
                              [&] {
                                  bare.readAll(u"SELECT count(*)"_s + BareKaRow);
                                  bare.readAll(u"SELECT *"_s + BareKaRow + BareKanaOrder
                                               + BarePage);
                              });
    });
}

void measureEncryption(Figures& figures, const Files& files, const QString& password)
{
    const BareFile encrypted(files.encrypted, password);
    const BareFile plain(files.plain, {});
    const auto both = [&](const QString& statement) {
        return bench::compare([&] { encrypted.readAll(statement); },
                              [&] { plain.readAll(statement); });
    };
    figures.measure(u"scan of an encrypted file"_s, 1.2, [&] { return both(BareAll); });
    figures.measure(u"search of an encrypted file"_s, 1.2, [&] { return both(bareSearch()); });
}

// The key is derived at every opening.
void measureOpening(Figures& figures, const Files& files, const QString& password)
{
    const QString name = u"opening in milliseconds (for information)"_s;
    if (!figures.wants(name))
        return;
    const Times times = bench::compare(
        [&] {
            storage::Connection file;
            require(file.open(files.encrypted, password), file);
        },
        [&] { BareFile(files.plain, {}).readAll(u"SELECT count(*) FROM sqlite_schema"_s); });
    figures.inform(name, times.ours);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"corvane_bench"_s);
    const QCommandLineOption folder(u"folder"_s, u"Where the measured files are kept."_s,
                                    u"folder"_s, QDir::temp().filePath(u"corvane_bench"_s));
    const QCommandLineOption customers(u"customers"_s, u"Customers in the file (10000 or more)."_s,
                                       u"count"_s, u"100000"_s);
    const QCommandLineOption only(u"only"_s, u"Only the figures whose names contain the text."_s,
                                  u"text"_s);
    QCommandLineParser arguments;
    arguments.setApplicationDescription(
        u"Prints one line per figure: name, ratio, limit. Exit status 1 when one is over."_s);
    arguments.addHelpOption();
    arguments.addOptions({folder, customers, only});
    arguments.process(application);
    const int count = arguments.value(customers).toInt();
    if (count < 10'000 || count > 10'000'000)
        arguments.showHelp(1);

    const QString password = QString::fromUtf16(core::DatabasePassword);
    const Files files = prepareFiles(arguments.value(folder), count, password);
    Figures figures(arguments.value(only));
    measureStorage(figures, files, password, count);
    bench::measureCustomerLists(figures, files.encrypted, password, Today);
    figures.measure(u"add of a customer"_s, 1.5,
                    [&] { return bench::compareAdding(files.encrypted, password, Today); });
    bench::measurePagesWritten(figures, files.encrypted, password, Today);
    measureEncryption(figures, files, password);
    measureOpening(figures, files, password);
    bench::measureWholeFile(figures, files.encrypted, password);
    bench::measureSearches(figures, files.encrypted, password);
    bench::measureListPages(figures, files.encrypted, password, Today);
    bench::measurePositions(figures, files.encrypted, Today);
    bench::measureStandingReader(figures, files.encrypted, password);
    if (figures.count() == 0)
        bench::giveUp(u"No figure has such a name."_s);
    return figures.within() ? 0 : 1;
}
