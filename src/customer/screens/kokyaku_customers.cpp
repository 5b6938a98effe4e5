#include "customer/screens/kokyaku_customers.h"

#include "customer/data/counts.h"
#include "customer/data/customer_list.h"
#include "customer/data/customers.h"
#include "customer/screens/list_orders.h"
#include "ui/list_view.h"
#include "ui_kokyaku_customers.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace customer {

kokyaku_customers::kokyaku_customers(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::kokyaku_customers>())
{
    m_ui->setupUi(this);
}

kokyaku_customers::~kokyaku_customers() = default;

void kokyaku_customers::initialize(CustomerFile& file, const Settings& settings)
{
    m_file = &file;
    ui::ListDefinition list;
    list.headers = {u"表示名"_s, u"自宅TEL"_s, u"会社TEL"_s, u"E-MAIL"_s};
    list.widths = {300, 140, 140};
    list.open = [this, &file, &settings](const std::optional<ui::ListOrder>& clicked) {
        return openCustomerList(file, m_filter, toSortOrder(clicked), settings);
    };
    list.standingOrder = [this, &settings] {
        return standingOrder(m_filter, customerSortOf(settings));
    };
    list.tableRows = [&file] { return countCustomers(file); };
    m_list =
        std::make_unique<ui::OrderedList>(*m_ui->ListView1, *m_ui->HScroll1, m_ui->cntKokya, list);
    m_list->model().setCheckBoxes(true, true);
    connect(&m_list->model(), &ui::PagedListModel::checkRequested, this,
            &kokyaku_customers::ListView1_ItemCheck);
    connect(m_ui->ListView1, &ui::ListView::currentRowChanged, this,
            &kokyaku_customers::currentChanged);
    connect(m_ui->ListView1, &ui::ListView::menuRequested, this, &kokyaku_customers::showMenu);
}

void kokyaku_customers::showFilter(const ListFilter& filter)
{
    m_filter = filter;
    m_ui->lblKokya->setCaption(filter.caption);
    // A filter with an order of its own is shown in it until a header is clicked.
    m_list->show(filter.ownOrder.isEmpty());
}

void kokyaku_customers::refill()
{
    m_list->refill();
}

void kokyaku_customers::clear()
{
    m_ui->lblKokya->setCaption({});
    m_list->clear();
}

core::RecordKey kokyaku_customers::currentKey() const
{
    return core::RecordKey::fromText(m_ui->ListView1->currentKey());
}

QString kokyaku_customers::currentName() const
{
    const QModelIndex current = m_ui->ListView1->currentIndex();
    return current.isValid() ? current.siblingAtColumn(0).data().toString() : QString();
}

QAbstractButton& kokyaku_customers::option()
{
    return *m_ui->optKokya;
}

ui::ListView& kokyaku_customers::view()
{
    return *m_ui->ListView1;
}

// The row gets the key of its new state, so that the next edit asks no false question.
void kokyaku_customers::ListView1_ItemCheck(int row, bool print)
{
    core::ListRow shown = m_list->model().rowAt(row);
    const auto key = core::RecordKey::fromText(shown.key);
    if (setCustomerPrint(*m_file, key, print) != records::SaveResult::Saved) {
        refill();
        return;
    }
    if (const std::optional<KeptCustomer> kept = readCustomer(*m_file, key)) {
        shown.key = kept->key.toText();
        shown.checked = kept->fields.print;
        // Another copy may have changed them before.
        const auto& texts = kept->fields.texts;
        shown.cells = {texts[DisplayName], texts[HomePhone], texts[CompanyPhone], texts[Email]};
        m_list->model().replaceRow(row, shown);
    }
}

void kokyaku_customers::showMenu(const QPoint& place)
{
    QMenu menu;
    menu.addActions(m_actions);
    menu.addSeparator();
    m_list->addTo(menu);
    menu.exec(place);
}

} // namespace customer
