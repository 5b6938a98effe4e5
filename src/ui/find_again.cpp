#include "ui/find_again.h"

#include "core/data/record_key.h"
#include "ui/paged_list_model.h"

namespace ui {
namespace {

bool sameRecord(const QString& one, const QString& other)
{
    const core::RecordKey first = core::RecordKey::fromText(one);
    const core::RecordKey second = core::RecordKey::fromText(other);
    return first.updateId == second.updateId && first.mark == second.mark && first.id == second.id;
}

int findBetween(const PagedListModel& model, const QString& key, int first, int last)
{
    for (int each = qMax(0, first); each <= qMin(model.rowCount() - 1, last); ++each) {
        if (sameRecord(model.rowAt(each).key, key))
            return each;
    }
    return -1;
}

} // namespace

int findAgainNear(const PagedListModel& model, const QString& key, int row)
{
    constexpr int Near = PagedListModel::BlockRows;
    int found = findBetween(model, key, row, row);
    if (found < 0)
        found = findBetween(model, key, row - Near, row + Near);
    return found >= 0 ? found : findBetween(model, key, 0, Near - 1);
}

} // namespace ui
