#include "customer/screens/kokyaku_logs.h"

#include "customer/data/counts.h"
#include "customer/data/log_list.h"
#include "customer/screens/list_orders.h"
#include "ui/list_view.h"
#include "ui_kokyaku_logs.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace customer {

kokyaku_logs::kokyaku_logs(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::kokyaku_logs>())
{
    m_ui->setupUi(this);
}

kokyaku_logs::~kokyaku_logs() = default;

void kokyaku_logs::initialize(CustomerFile& file, const Settings& settings)
{
    ui::ListDefinition list;
    list.headers = {u"記録日"_s, u"記録者"_s, u"ログ"_s};
    list.widths = {120, 120};
    list.open = [this, &file, &settings](const std::optional<ui::ListOrder>& clicked) {
        return openLogList(file, m_filter, toSortOrder(clicked), settings);
    };
    list.standingOrder = [this, &settings] { return standingOrder(m_filter, logSortOf(settings)); };
    list.tableRows = [&file] { return countLogs(file); };
    m_list =
        std::make_unique<ui::OrderedList>(*m_ui->ListView3, *m_ui->HScroll3, m_ui->cntRog, list);
    connect(m_ui->ListView3, &ui::ListView::currentRowChanged, this, &kokyaku_logs::currentChanged);
    connect(m_ui->ListView3, &ui::ListView::menuRequested, this, &kokyaku_logs::showMenu);
    clear();
}

void kokyaku_logs::showLogsOf(const core::RecordKey& ofCase, const QString& title)
{
    m_filter = logsOfCase(ofCase, title);
    m_ui->lblRog->setCaption(m_filter.caption);
    m_list->show(true);
    m_shown = true;
}

void kokyaku_logs::clear()
{
    m_ui->lblRog->setCaption({});
    m_list->clear();
    m_shown = false;
}

void kokyaku_logs::refill()
{
    m_list->refill();
}

core::RecordKey kokyaku_logs::currentKey() const
{
    return core::RecordKey::fromText(m_ui->ListView3->currentKey());
}

QAbstractButton& kokyaku_logs::option()
{
    return *m_ui->optRog;
}

ui::ListView& kokyaku_logs::view()
{
    return *m_ui->ListView3;
}

void kokyaku_logs::showMenu(const QPoint& place)
{
    QMenu menu;
    menu.addActions(m_actions);
    menu.addSeparator();
    m_list->addTo(menu);
    menu.exec(place);
}

} // namespace customer
