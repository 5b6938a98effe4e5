#pragma once

#include "records/data/database.h"
#include "ui/paged_list_model.h"

#include <QWidget>

#include <memory>

namespace Ui {
class schedule_pane;
}
namespace ui {
class ListView;
}

namespace records {

class Selection;

// The calendar that marks the days with entries, and the schedule from the chosen day on
// (ListView8).
class SchedulePane : public QWidget {
    Q_OBJECT

public:
    explicit SchedulePane(QWidget* parent = nullptr);
    ~SchedulePane() override;

    // Both live longer; the chosen day and the selected entry (of `list`) are written into the
    // selection.
    void initialize(Database& database, Selection& selection, int list);
    // Whether the list of entries is shown (予定表示).
    void showEntries(bool shown);
    // Reads marks and entries again; the chosen day stays.
    void refill();
    void clear();
    // Chooses a day, and an entry of those shown; false when that is not among them.
    void chooseDay(QDate day);
    bool selectEntry(const core::RecordKey& key);
    QWidget* calendar();
    ui::ListView& view();
    // What the context menu holds.
    void setActions(const QList<QAction*>& actions) { m_actions = actions; }

signals:
    // The selected entry is to be deleted.
    void deletionAsked();

private:
    void showMenu(const QPoint& place);
    void showDay();
    void writeSelection();
    void markDays();

    std::unique_ptr<Ui::schedule_pane> m_ui;
    ui::PagedListModel m_model;
    Database* m_data = nullptr;
    Selection* m_selection = nullptr;
    int m_list = 0;
    QList<QAction*> m_actions;
};

} // namespace records
