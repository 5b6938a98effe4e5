#include "ui/paged_list.h"

#include "ui/counters.h"
#include "ui/list_view.h"
#include "ui/page_scroll_bar.h"

namespace ui {
namespace {

// Long enough for the window system to show the rows before they are counted.
constexpr int CountingDelay = 20; // ms

qint64 pageOf(const core::ListSource& source, qint64 place)
{
    return source.pageSize() > 0 ? (place - 1) / source.pageSize() + 1 : 1;
}

// On its page.
int rowOf(const core::ListSource& source, qint64 place)
{
    return static_cast<int>(source.pageSize() > 0 ? (place - 1) % source.pageSize() : place - 1);
}

} // namespace

PagedList::PagedList(ListView& view, PageScrollBar& pages, Counters* counters,
                     const QStringList& headers)
    : m_view(view), m_pages(pages), m_counters(counters), m_model(headers)
{
    m_view.setListModel(&m_model);
    m_counting.setSingleShot(true);
    m_counting.setInterval(CountingDelay);
    connect(&m_counting, &QTimer::timeout, this, &PagedList::count);
    connect(&m_view, &ListView::currentRowChanged, this, &PagedList::showCurrent);
    connect(&m_pages, &PageScrollBar::pageChosen, this, [this](qint64 page) {
        m_view.turnTo(page);
        showCurrent();
    });
    connect(&m_view, &ListView::pageWanted, this, &PagedList::turnBy);
}

void PagedList::fill(std::shared_ptr<core::ListSource> source, TableRows tableRows)
{
    m_tableRows = std::move(tableRows);
    m_view.fill(std::move(source));
    m_counting.start();
}

void PagedList::refill(std::shared_ptr<core::ListSource> source, TableRows tableRows)
{
    m_tableRows = std::move(tableRows);
    if (source)
        source->setPage(m_model.source() ? m_model.source()->page() : 1);
    m_view.refill(std::move(source));
    showCurrent();
    m_counting.start();
}

void PagedList::follow(std::shared_ptr<core::ListSource> source, TableRows tableRows)
{
    if (!showPlaceOfCurrent(source, tableRows))
        refill(std::move(source), std::move(tableRows));
}

void PagedList::reorder(std::shared_ptr<core::ListSource> source, TableRows tableRows)
{
    if (!showPlaceOfCurrent(source, tableRows))
        fill(std::move(source), std::move(tableRows));
}

// False when there is no current record, or the source has it no more.
bool PagedList::showPlaceOfCurrent(std::shared_ptr<core::ListSource>& source, TableRows& tableRows)
{
    const core::RecordKey key = core::RecordKey::fromText(m_view.currentKey());
    const qint64 place = key.isNone() ? 0 : source->positionOf(key);
    if (place <= 0)
        return false;
    m_tableRows = std::move(tableRows);
    source->setPage(pageOf(*source, place));
    const int row = rowOf(*source, place);
    m_view.refill(std::move(source), row);
    m_view.scrollTo(m_model.index(row, 0));
    showCurrent();
    m_counting.start();
    return true;
}

bool PagedList::turnTo(const core::RecordKey& key)
{
    core::ListSource* const source = m_model.source();
    return turnToPlace(source ? source->positionOf(key) : 0);
}

bool PagedList::turnToText(const QString& text)
{
    core::ListSource* const source = m_model.source();
    return turnToPlace(source ? source->positionOfText(text) : 0);
}

void PagedList::turnBy(int pages, int row)
{
    core::ListSource* const source = m_model.source();
    const qint64 page = source ? source->page() + pages : 0;
    if (page < 1 || page > source->pageCount())
        return;
    const bool hadRow = m_view.currentIndex().isValid();
    const int wanted = row == ListView::SameRow ? m_view.currentIndex().row() : row;
    m_view.turnTo(page);
    m_pages.setPages(page, source->pageCount());
    const int last = m_model.rowCount() - 1;
    if (hadRow && last >= 0)
        m_view.selectRow(wanted < 0 ? last : qMin(wanted, last));
    showCurrent();
}

bool PagedList::turnToPlace(qint64 place)
{
    core::ListSource* const source = m_model.source();
    if (place <= 0)
        return false;
    const qint64 page = pageOf(*source, place);
    if (page != source->page())
        m_view.turnTo(page);
    m_view.selectRow(rowOf(*source, place));
    m_counting.start();
    return true;
}

void PagedList::clear()
{
    m_counting.stop();
    m_view.fill(nullptr);
    m_pages.setPages(1, 1);
    if (m_counters)
        m_counters->reset();
}

qint64 PagedList::currentPlace()
{
    core::ListSource* const source = m_model.source();
    const int row = m_view.currentIndex().row();
    if (!source || row < 0)
        return 0;
    const qint64 before = (source->page() - 1) * source->pageSize();
    return before + row + 1;
}

void PagedList::count()
{
    core::ListSource* const source = m_model.source();
    if (!source)
        return;
    m_pages.setPages(source->page(), source->pageCount());
    if (m_counters) {
        m_counters->setTotal(m_countsPages ? source->total() : m_tableRows());
        const qint64 rows = source->total();
        m_counters->setMost(m_countsPages && rows > 0 ? source->pageCount() : rows);
    }
    showCurrent();
    emit counted();
}

void PagedList::showCurrent()
{
    if (!m_counters)
        return;
    core::ListSource* const source = m_model.source();
    const bool hasRows = source && m_model.rowCount() > 0;
    m_counters->setCurrent(!m_countsPages ? currentPlace() : hasRows ? source->page() : 0);
}

} // namespace ui
