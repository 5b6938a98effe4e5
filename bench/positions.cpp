#include "positions.h"

#include "bare_file.h"
#include "hand_lists.h"
#include "opened_sample.h"
#include "reading.h"

#include "core/data/record_key.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr double PlaceLimit = 2.0;

using Open = std::function<std::unique_ptr<records::RecordList>()>;

// A list as it is when somebody saves or looks for a record: its first page is shown and counted.
std::unique_ptr<records::RecordList> openedAndCounted(const Open& open)
{
    auto list = open();
    readPage(*list);
    list->total();
    return list;
}

// The record in the middle of the list's middle page.
Times comparePosition(const Open& open, int pageRows)
{
    const auto whole = openedAndCounted(open);
    const qint64 page = (whole->pageCount() + 1) / 2;
    whole->setPage(page);
    const QList<core::ListRow> rows = readPage(*whole);
    const qsizetype middle = rows.size() / 2;
    const core::RecordKey key = core::RecordKey::fromText(rows[middle].key);
    const qint64 expected = (page - 1) * pageRows + middle + 1;

    const Sample found = [&] {
        const auto list = openedAndCounted(open);
        QElapsedTimer timer;
        timer.start();
        const qint64 position = list->positionOf(key);
        list->setPage((position - 1) / pageRows + 1);
        readPage(*list);
        const double time = milliseconds(timer);
        if (position != expected)
            giveUp(u"A record stands at "_s + QString::number(position) + u" instead of "_s
                   + QString::number(expected));
        return time;
    };
    const Sample turned = [&] {
        const auto list = openedAndCounted(open);
        QElapsedTimer timer;
        timer.start();
        list->setPage(page);
        readPage(*list);
        return milliseconds(timer);
    };
    const std::vector<double> times = medians({found, turned});
    return {times[0], times[1]};
}

void measureList(Figures& figures, const HandList& list)
{
    for (const HandFilter& filter : list.filters) {
        for (const HandOrder& order : list.orders) {
            const QString name = u"position in the "_s + list.name + u" of "_s + filter.name
                + u" by "_s + order.name + u" and its page"_s;
            const Open open = [&] { return list.open(filter, order.column, false); };
            if (figures.wants(name) && open()->total() > 0) {
                figures.measure(name, PlaceLimit,
                                [&] { return comparePosition(open, list.pageRows(filter)); });
            }
        }
    }
}

} // namespace

void measurePositions(Figures& figures, const QString& path, QDate today)
{
    OpenedSample sample(path, today);
    measureList(figures, customerList(sample.file(), today));
    measureList(figures, caseList(sample.file()));
}

} // namespace bench
