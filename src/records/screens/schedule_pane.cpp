#include "records/screens/schedule_pane.h"

#include "core/data/clock.h"
#include "records/data/schedule.h"
#include "records/screens/selection.h"
#include "text/holidays.h"
#include "ui/list_view.h"
#include "ui/spare_width.h"
#include "ui_schedule_pane.h"

#include <QHeaderView>
#include <QMenu>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace records {

namespace {

constexpr int DaysShown = 7; // from the chosen day on

} // namespace

SchedulePane::SchedulePane(QWidget* parent)
    : QWidget(parent),
      m_ui(std::make_unique<Ui::schedule_pane>()),
      m_model({u"予定日"_s, u"時刻"_s, u"予定内容"_s})
{
    m_ui->setupUi(this);
    m_ui->ListView8->setListModel(&m_model);
    m_ui->ListView8->setHint(u"予定はありません。Ctrl+Y で追加します。"_s);
    new ui::SpareWidth(*m_ui->ListView8, {2});
    m_ui->ListView8->header()->setSectionsClickable(false);
    m_ui->ListView8->header()->resizeSection(0, 115);
    m_ui->ListView8->header()->resizeSection(1, 50);
    connect(m_ui->MonthView1, &QCalendarWidget::selectionChanged, this, &SchedulePane::showDay);
    connect(m_ui->ListView8, &ui::ListView::menuRequested, this, &SchedulePane::showMenu);
    connect(m_ui->ListView8, &ui::ListView::deletionAsked, this, &SchedulePane::deletionAsked);
    connect(m_ui->ListView8, &ui::ListView::currentRowChanged, this, &SchedulePane::writeSelection);
    connect(m_ui->ListView8, &ui::ListView::selectedRowsChanged, this, [this] {
        if (m_selection)
            m_selection->setCount(m_list, m_ui->ListView8->selectedRows());
    });
    connect(m_ui->MonthView1, &QCalendarWidget::currentPageChanged, this, &SchedulePane::markDays);
}

SchedulePane::~SchedulePane() = default;

void SchedulePane::initialize(Database& database, Selection& selection, int list)
{
    m_list = list;
    m_data = &database;
    m_selection = &selection;
    const QSignalBlocker blocker(m_ui->MonthView1);
    m_ui->MonthView1->setSelectedDate(database.clock.today());
    refill();
}

// The calendar stays: days are chosen there for the cases too.
void SchedulePane::showEntries(bool shown)
{
    m_ui->ListView8->setVisible(shown);
    m_ui->lblYoteiList->setVisible(shown);
}

void SchedulePane::refill()
{
    m_ui->MonthView1->setToday(m_data->clock.today());
    markDays();
    showDay();
}

void SchedulePane::showDay()
{
    const QDate day = m_ui->MonthView1->selectedDate();
    m_selection->setDay(day);
    const QString holiday = text::holidayName(day);
    m_ui->lblYotei->setCaption(weekdayAnnouncement(day)
                               + (holiday.isEmpty() ? QString() : u'　' + holiday));
    m_ui->ListView8->refill(openSchedule(*m_data, day, day.addDays(DaysShown - 1)));
    m_ui->lblYoteiList->setCaption(u"予定　%1日間 %2 件（この日 %3 件）"_s.arg(DaysShown)
                                       .arg(m_model.rowCount())
                                       .arg(countScheduleEntries(*m_data, day)));
    writeSelection();
}

void SchedulePane::writeSelection()
{
    const QModelIndex current = m_ui->ListView8->currentIndex();
    if (m_selection)
        m_selection->set(m_list, core::RecordKey::fromText(m_ui->ListView8->currentKey()),
                         current.siblingAtColumn(2).data().toString());
}

void SchedulePane::chooseDay(QDate day)
{
    m_ui->MonthView1->setSelectedDate(day);
}

bool SchedulePane::selectEntry(const core::RecordKey& key)
{
    core::ListSource* const entries = m_model.source();
    const qint64 place = entries ? entries->positionOf(key) : 0;
    if (place > 0)
        m_ui->ListView8->selectRow(static_cast<int>(place) - 1);
    return place > 0;
}

void SchedulePane::showMenu(const QPoint& place)
{
    QMenu menu;
    menu.addActions(m_actions);
    menu.exec(place);
}

void SchedulePane::markDays()
{
    const auto [first, last] = m_ui->MonthView1->shownDays();
    m_ui->MonthView1->setMarked(daysWithEntries(*m_data, first, last));
}

void SchedulePane::clear()
{
    m_ui->ListView8->fill(nullptr);
}

QWidget* SchedulePane::calendar()
{
    return m_ui->MonthView1;
}

ui::ListView& SchedulePane::view()
{
    return *m_ui->ListView8;
}

} // namespace records
