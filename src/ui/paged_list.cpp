#include "ui/paged_list.h"

#include "ui/counters.h"
#include "ui/list_view.h"
#include "ui/page_scroll_bar.h"

namespace ui {
namespace {

// Long enough for the window system to show the rows before they are counted.
constexpr int CountingDelay = 20; // ms

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
    if (source->page() == 1)
        return row + 1;
    // Only the last page may be shorter than the others.
    const bool isLast = source->page() == source->pageCount();
    const qint64 before =
        isLast ? source->total() - source->count() : (source->page() - 1) * source->count();
    return before + row + 1;
}

void PagedList::count()
{
    core::ListSource* const source = m_model.source();
    if (!source)
        return;
    m_pages.setPages(source->page(), source->pageCount());
    if (m_counters) {
        m_counters->setTotal(m_tableRows());
        m_counters->setMost(source->total());
    }
    emit counted();
}

void PagedList::showCurrent()
{
    if (m_counters)
        m_counters->setCurrent(currentPlace());
}

} // namespace ui
