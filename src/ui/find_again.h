#pragma once

class QString;

namespace ui {

class PagedListModel;

// The row of a record on the page shown: where it stood, near that place, or among the first rows,
// where a list by the last change has what was just saved; -1 when it is not there.
int findAgainNear(const PagedListModel& model, const QString& key, int row);

} // namespace ui
