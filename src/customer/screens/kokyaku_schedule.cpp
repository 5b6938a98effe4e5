#include "customer/screens/kokyaku_schedule.h"

#include "core/data/clock.h"
#include "records/data/schedule.h"
#include "ui/list_view.h"
#include "ui_kokyaku_schedule.h"

#include <QHeaderView>
#include <QMenu>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace customer {

namespace {

constexpr int DaysShown = 7; // from the chosen day on

} // namespace

kokyaku_schedule::kokyaku_schedule(QWidget* parent)
    : QWidget(parent),
      m_ui(std::make_unique<Ui::kokyaku_schedule>()),
      m_model({u"予定日"_s, u"時刻"_s, u"予定内容"_s})
{
    m_ui->setupUi(this);
    m_ui->ListView8->setListModel(&m_model);
    m_ui->ListView8->header()->setSectionsClickable(false);
    m_ui->ListView8->header()->resizeSection(0, 115);
    m_ui->ListView8->header()->resizeSection(1, 50);
    connect(m_ui->MonthView1, &QCalendarWidget::selectionChanged, this, &kokyaku_schedule::showDay);
    connect(m_ui->ListView8, &ui::ListView::menuRequested, this, &kokyaku_schedule::showMenu);
    connect(m_ui->MonthView1, &QCalendarWidget::currentPageChanged, this,
            &kokyaku_schedule::markDays);
}

kokyaku_schedule::~kokyaku_schedule() = default;

void kokyaku_schedule::initialize(CustomerFile& file)
{
    m_file = &file;
    const QSignalBlocker blocker(m_ui->MonthView1);
    m_ui->MonthView1->setSelectedDate(file.clock.today());
    refill();
}

// The calendar stays: days are chosen there for the cases too.
void kokyaku_schedule::showEntries(bool shown)
{
    m_ui->ListView8->setVisible(shown);
}

void kokyaku_schedule::refill()
{
    markDays();
    showDay();
}

void kokyaku_schedule::showDay()
{
    const QDate day = m_ui->MonthView1->selectedDate();
    const qint64 entries = records::countScheduleEntries(*m_file, day);
    m_ui->lblYotei->setCaption(records::weekdayAnnouncement(day) + u"　予定 "_s
                               + QString::number(entries) + u" 件"_s);
    m_ui->ListView8->refill(records::openSchedule(*m_file, day, day.addDays(DaysShown - 1)));
}

QDate kokyaku_schedule::day() const
{
    return m_ui->MonthView1->selectedDate();
}

void kokyaku_schedule::showMenu(const QPoint& place)
{
    QMenu menu;
    menu.addActions(m_actions);
    menu.exec(place);
}

void kokyaku_schedule::markDays()
{
    const auto [first, last] = m_ui->MonthView1->shownDays();
    m_ui->MonthView1->setMarked(records::daysWithEntries(*m_file, first, last));
}

void kokyaku_schedule::clear()
{
    m_ui->ListView8->fill(nullptr);
}

QWidget* kokyaku_schedule::calendar()
{
    return m_ui->MonthView1;
}

ui::ListView& kokyaku_schedule::view()
{
    return *m_ui->ListView8;
}

} // namespace customer
