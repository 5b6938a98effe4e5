#pragma once

#include <QItemSelection>
#include <QString>

namespace ui {

class PagedListModel;

// The selected rows from top to bottom as text: cells joined by a tab, rows ended by CR LF. Rows
// are read from the list's source in blocks, past the model's own store.
QString copyText(const PagedListModel& model, const QItemSelection& selection);

} // namespace ui
