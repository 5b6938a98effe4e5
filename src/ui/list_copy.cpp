#include "ui/list_copy.h"

#include "ui/paged_list_model.h"

#include <map>

using namespace Qt::Literals::StringLiterals;

namespace ui {
namespace {

constexpr int RowsAtATime = 4096;

// First and last rows of the stretches that are selected, in order, each row once.
std::map<int, int> stretches(const QItemSelection& selection)
{
    std::map<int, int> ordered;
    for (const QItemSelectionRange& range : selection) {
        int& last = ordered[range.top()];
        last = qMax(last, range.bottom());
    }
    std::map<int, int> merged;
    for (const auto& [top, bottom] : ordered) {
        if (!merged.empty() && top <= merged.rbegin()->second + 1)
            merged.rbegin()->second = qMax(merged.rbegin()->second, bottom);
        else
            merged.emplace(top, bottom);
    }
    return merged;
}

void appendRow(QString& text, const core::ListRow& row)
{
    for (qsizetype column = 0; column < row.cells.size(); ++column) {
        if (column > 0)
            text += u'\t';
        text += oneLine(row.cells.at(column));
    }
    text += u"\r\n"_s;
}

} // namespace

QString copyText(const PagedListModel& model, const QItemSelection& selection)
{
    QString text;
    if (!model.source())
        return text;
    for (const auto& [top, bottom] : stretches(selection)) {
        for (int row = top; row <= bottom; row += RowsAtATime) {
            const int wanted = qMin(RowsAtATime, bottom - row + 1);
            const QList<core::ListRow> rows = model.source()->rows(row, wanted);
            for (const core::ListRow& each : rows)
                appendRow(text, each);
            if (rows.size() < wanted)
                return text;
        }
    }
    return text;
}

} // namespace ui
