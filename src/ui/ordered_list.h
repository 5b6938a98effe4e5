#pragma once

#include "ui/paged_list.h"

#include <functional>
#include <optional>

class QMenu;

namespace ui {

// The column that a list is ordered by, from 0, and the direction.
struct ListOrder {
    int column = 0;
    bool descending = false;

    bool operator==(const ListOrder& other) const = default;
};

// What a list shows, where its rows come from and how they are ordered.
struct ListDefinition {
    QStringList headers;
    QList<int> widths; // of the columns but the last, which takes what is left
    // The rows of what is to be shown now, in the order of a clicked column or in their own.
    std::function<std::shared_ptr<core::ListSource>(const std::optional<ListOrder>& clicked)> open;
    // The order of the rows when no column was clicked; nullopt when it is not that of a column.
    std::function<std::optional<ListOrder>()> standingOrder;
    // Rows of the list's table in all.
    std::function<qint64()> tableRows;
};

// A list that is ordered by clicks on its headers: a click orders by the column, a second click on
// the same column turns the order round.
class OrderedList : public QObject {
    Q_OBJECT

public:
    // The widgets must live as long as this; `counters` may be null.
    OrderedList(ListView& view, PageScrollBar& pages, Counters* counters,
                ListDefinition definition);

    PagedListModel& model() { return m_list.model(); }

    // Shows rows that the definition now opens, from the first on. `keepOrder`: a clicked order
    // stays.
    void show(bool keepOrder);
    // Reads the list again and stays where it is.
    void refill();
    void clear();

    // What clicking the header of a column does.
    void orderBy(int column);
    // Adds what every list offers: copying, ordering by keys, reading again.
    void addTo(QMenu& menu);

private:
    void showOrder();

    ListView& m_view;
    PagedList m_list;
    ListDefinition m_definition;
    std::optional<ListOrder> m_clicked;
    bool m_shown = false;
};

} // namespace ui
