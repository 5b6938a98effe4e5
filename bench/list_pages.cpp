#include "list_pages.h"

#include "bare_file.h"
#include "hand_lists.h"
#include "opened_sample.h"
#include "reading.h"

#include "core/data/record_key.h"

#include <QElapsedTimer>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr double TurnLimit = 2.0;
constexpr double LongEnough = 20000; // milliseconds after which a first way is given up
constexpr double Hopeless = 1.5;     // a way that takes so many times as long as another one
constexpr double Close = 1.3;        // ways that are so near to the best are timed with it
constexpr std::size_t Finalists = 2;
constexpr double Quick =
    20; // milliseconds; what takes longer does not depend on what was read before

struct Trial {
    HandWay way;
    HandWritten statement;
    double time = 0;
};

// One list in one order.
struct OrderedList {
    const HandList& list;
    const HandFilter& filter;
    int column;
    bool descending;
    std::vector<HandWay> ways;

    std::unique_ptr<records::RecordList> open() const
    {
        return list.open(filter, column, descending);
    }
};

class ListPages {
public:
    ListPages(Figures& figures, const QString& path, const QString& password, QDate today)
        : m_figures(figures), m_sample(path, today), m_bare(path, password)
    {
    }

    void measure(const HandList& list);
    customer::CustomerFile& file() { return m_sample.file(); }

private:
    void measureOrder(const HandList& list, const HandFilter& filter, const HandOrder& order,
                      bool descending);
    Times comparePage(const OrderedList& ofCase, qint64 page);
    std::vector<Trial> bestTrials(const OrderedList& ofCase, const Window& window,
                                  const QList<qint64>& expected) const;
    bool tryOut(Trial* trial, double* best, const QList<qint64>& expected) const;

    Figures& m_figures;
    OpenedSample m_sample;
    BareFile m_bare;
};

void ListPages::measure(const HandList& list)
{
    for (const HandFilter& filter : list.filters) {
        for (const HandOrder& order : list.orders) {
            for (const bool descending : {false, true})
                measureOrder(list, filter, order, descending);
        }
    }
}

void ListPages::measureOrder(const HandList& list, const HandFilter& filter, const HandOrder& order,
                             bool descending)
{
    const QString name = list.name + u" of "_s + filter.name + u" by "_s + order.name
        + (descending ? u" descending, "_s : u", "_s);
    const QString first = name + u"first page"_s;
    const QString middle = name + u"middle page"_s;
    const QString last = name + u"last page"_s;
    if (!m_figures.wantsAnyOf({first, middle, last}))
        return;
    const OrderedList ofCase{list, filter, order.column, descending,
                             handWays(m_bare, list, order, descending, filter)};
    const qint64 pages = ofCase.open()->pageCount();
    m_figures.measure(first, TurnLimit, [&] { return comparePage(ofCase, 1); });
    if (pages > 2)
        m_figures.measure(middle, TurnLimit, [&] { return comparePage(ofCase, (pages + 1) / 2); });
    if (pages > 1)
        m_figures.measure(last, TurnLimit, [&] { return comparePage(ofCase, pages); });
}

// A first page is opened and read. A list is turned to another one when the first page has been
// read and the rows have been counted, as the screen does both; so the bare engine counts as well
// before its clock starts, and what a quick page needs is as far away for both.
Times ListPages::comparePage(const OrderedList& ofCase, qint64 page)
{
    const auto turned = ofCase.open();
    turned->setPage(page);
    QList<qint64> expected;
    for (const core::ListRow& row : readPage(*turned))
        expected += core::RecordKey::fromText(row.key).updateId;
    const Window window{(page - 1) * ofCase.list.pageRows(ofCase.filter), expected.size()};
    const std::vector<Trial> trials = bestTrials(ofCase, window, expected);

    std::vector<Sample> samples;
    samples.emplace_back([&] {
        QElapsedTimer timer;
        timer.start();
        const auto list = ofCase.open();
        qsizetype rows = 0;
        if (page > 1) {
            readPage(*list);
            list->total();
            timer.start();
            list->setPage(page);
        }
        rows = readPage(*list).size();
        const double time = milliseconds(timer);
        if (rows != expected.size())
            giveUp(u"A page has lost rows."_s);
        return time;
    });
    for (const Trial& trial : trials) {
        samples.emplace_back([this, &trial, page] {
            if (page > 1 && trial.time < Quick)
                m_bare.readAll(trial.way.count());
            QElapsedTimer timer;
            timer.start();
            if (!m_bare.read(trial.statement, LongEnough))
                giveUp(trial.statement.statement);
            return milliseconds(timer);
        });
    }
    const std::vector<double> times = medians(samples);
    return {times.front(), *std::min_element(times.begin() + 1, times.end())};
}

// Every way is tried with its addresses first; the two quickest ways in all their forms.
std::vector<Trial> ListPages::bestTrials(const OrderedList& ofCase, const Window& window,
                                         const QList<qint64>& expected) const
{
    double best = LongEnough;
    std::vector<Trial> trials;
    const auto consider = [&](const HandWay& way, const HandWritten& statement) {
        Trial trial{way, statement};
        if (tryOut(&trial, &best, expected))
            trials.push_back(trial);
    };
    for (const HandWay& way : ofCase.ways)
        consider(way, way.narrow(ofCase.list, window));
    std::ranges::sort(trials, {}, &Trial::time);
    trials.resize(std::min<std::size_t>(trials.size(), 2));
    for (const Trial& trial : std::vector<Trial>(trials)) {
        consider(trial.way, trial.way.wide(ofCase.list, window));
        consider(trial.way, trial.way.inTwoSteps(ofCase.list, window));
    }
    if (trials.empty())
        giveUp(u"Nothing written by hand finds the rows of a page."_s);
    std::ranges::sort(trials, {}, &Trial::time);
    std::erase_if(trials, [best](const Trial& trial) { return trial.time > best * Close; });
    trials.resize(std::min(trials.size(), Finalists));
    return trials;
}

// Twice, since the first time brings the pages into the engine's memory.
bool ListPages::tryOut(Trial* trial, double* best, const QList<qint64>& expected) const
{
    trial->time = std::numeric_limits<double>::max();
    for (int turn = 0; turn < 2; ++turn) {
        QElapsedTimer timer;
        timer.start();
        const auto found = m_bare.read(trial->statement, std::max(*best * Hopeless, 1.0));
        if (!found)
            break;
        if (*found != expected)
            giveUp(u"Another page than the list's: "_s + trial->statement.statement);
        trial->time = std::min(trial->time, milliseconds(timer));
        *best = std::min(*best, trial->time);
    }
    return trial->time < LongEnough;
}

} // namespace

void measureListPages(Figures& figures, const QString& path, const QString& password, QDate today)
{
    ListPages pages(figures, path, password, today);
    pages.measure(customerList(pages.file(), today));
    pages.measure(caseList(pages.file()));
}

} // namespace bench
