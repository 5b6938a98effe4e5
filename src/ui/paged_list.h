#pragma once

#include "core/data/record_key.h"
#include "ui/paged_list_model.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace ui {

class Counters;
class ListView;
class PageScrollBar;

// Ties a list of a screen together: its view, the scroll bar that turns its pages and its counters.
// The rows are shown first; pages and counters, which may have to be counted, follow.
class PagedList : public QObject {
    Q_OBJECT

public:
    // `counters` may be null. The widgets must live as long as this.
    PagedList(ListView& view, PageScrollBar& pages, Counters* counters, const QStringList& headers);

    PagedListModel& model() { return m_model; }

    // Counts the rows of the list's table in all (合計).
    using TableRows = std::function<qint64()>;

    // Shows another list from its first row on.
    void fill(std::shared_ptr<core::ListSource> source, TableRows tableRows);
    // Shows the same list read anew, on the page that is shown now; the selection stays where its
    // record is still there.
    void refill(std::shared_ptr<core::ListSource> source, TableRows tableRows);
    // The same, but turned to the page on which the selected record stands now.
    void follow(std::shared_ptr<core::ListSource> source, TableRows tableRows);
    // Shows the same rows in another order, on the page where the selected record now stands; it
    // stays selected. Without one: from the first row on.
    void reorder(std::shared_ptr<core::ListSource> source, TableRows tableRows);
    // Turns to the page of a record and selects it; false when it is not among the rows.
    bool turnTo(const core::RecordKey& key);
    // Turns to the first row whose cell in the ordered column begins with a text; false when there
    // is none.
    bool turnToText(const QString& text);
    // Empties the list; its counters go to 0.
    void clear();

    // What the counters say: rows of the table, place, rows listed; or rows listed, page, pages.
    void countPages(bool pages) { m_countsPages = pages; }

    // Place of the current row among the rows of all pages, from 1; 0 when there is none.
    qint64 currentPlace();

signals:
    // Pages and counters show what was filled in last.
    void counted();

private:
    void count();
    void showCurrent();
    bool showPlaceOfCurrent(std::shared_ptr<core::ListSource>& source, TableRows& tableRows);
    bool turnToPlace(qint64 place);
    void turnBy(int pages, int row);

    ListView& m_view;
    PageScrollBar& m_pages;
    Counters* m_counters;
    PagedListModel m_model;
    TableRows m_tableRows;
    QTimer m_counting;
    bool m_countsPages = false;
};

} // namespace ui
