#include "customer/screens/kokyaku_cases.h"

#include "core/data/clock.h"
#include "customer/data/case_list.h"
#include "customer/data/cases.h"
#include "customer/data/counts.h"
#include "customer/screens/list_orders.h"
#include "ui/list_view.h"
#include "ui_kokyaku_cases.h"

#include <QMenu>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace customer {

namespace {

constexpr int RegisteredColumn = 0;
constexpr int PlannedColumn = 1;
// Values of 件名表示日; any other shows both.
constexpr int RegisteredDateAlone = 1;
constexpr int PlannedDateAlone = 2;
const QString NoCustomerCaption = u"件名表示"_s;

QHash<int, ui::Emphasis> plannedLooks()
{
    return {{PlannedLater, {QColor(0x0d, 0x47, 0xa1), {}, u"予定"_s}},
            {PlannedToday, {QColor(0x8a, 0x4b, 0x00), QColor(0xff, 0xf3, 0xd6), u"本日"_s}},
            {PlannedBefore, {QColor(0xa3, 0x15, 0x15), QColor(0xff, 0xe8, 0xe6), u"超過"_s}}};
}

} // namespace

kokyaku_cases::kokyaku_cases(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::kokyaku_cases>())
{
    m_ui->setupUi(this);
    m_ui->split2->setSizes({130, 900});
    m_ui->split2->setStretchFactor(1, 1);
    for (const CaseIndexNode& node : caseIndex()) {
        auto* const item = new QTreeWidgetItem(m_ui->TreeView2, {node.caption});
        item->setData(0, Qt::UserRole, static_cast<int>(node.view));
    }
    m_ui->TreeView2->setCurrentItem(m_ui->TreeView2->topLevelItem(0));
    connect(m_ui->TreeView2, &QTreeWidget::currentItemChanged, this, &kokyaku_cases::chooseView);
    // Clicking the node that is chosen already runs its search again.
    m_ui->TreeView2->viewport()->installEventFilter(this);
    connect(m_ui->TreeView2, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        if (item == m_beforePress)
            chooseView(item);
    });
}

kokyaku_cases::~kokyaku_cases() = default;

void kokyaku_cases::initialize(CustomerFile& file, const Settings& settings)
{
    m_file = &file;
    m_settings = &settings;
    ui::ListDefinition list;
    list.headers = {u"登録日"_s, u"予定日"_s, u"表示名"_s, u"件名"_s, u"備考"_s, u"判定"_s};
    list.widths = {145, 160, 130, 170, 90};
    list.open = [this](const std::optional<ui::ListOrder>& clicked) {
        return openCaseList(*m_file, m_filter, toSortOrder(clicked), *m_settings);
    };
    list.standingOrder = [this] { return standingOrder(m_filter, caseSortOf(*m_settings)); };
    list.tableRows = [&file] { return countCases(file); };
    m_list =
        std::make_unique<ui::OrderedList>(*m_ui->ListView2, *m_ui->HScroll2, m_ui->cntKen, list);
    m_list->model().setCheckBoxes(true, true);
    connect(&m_list->model(), &ui::PagedListModel::checkRequested, this,
            &kokyaku_cases::ListView2_ItemCheck);
    m_ui->ListView2->keepLightBase();
    connect(m_ui->ListView2, &ui::ListView::currentRowChanged, this,
            &kokyaku_cases::currentChanged);
    connect(m_ui->ListView2, &ui::ListView::menuRequested, this, &kokyaku_cases::showMenu);
    clear();
}

void kokyaku_cases::showCasesOf(const core::RecordKey& customer, const QString& name)
{
    m_ofCustomer = casesOfCustomer(customer, name);
    m_view = CaseView::Single;
    const QSignalBlocker blocker(m_ui->TreeView2);
    m_ui->TreeView2->setCurrentItem(m_ui->TreeView2->topLevelItem(0));
    showFilter(m_ofCustomer);
}

void kokyaku_cases::showCase(const core::RecordKey& ofCase)
{
    showOutsideIndex(singleCase(ofCase));
    m_ui->ListView2->selectRow(0);
}

void kokyaku_cases::showDay(QDate day)
{
    showOutsideIndex(casesOfDay(day));
}

void kokyaku_cases::showText(const QString& text)
{
    showOutsideIndex(casesWithText(text));
}

// What no node of the index shows: none of them is marked then, so that each can be chosen.
void kokyaku_cases::showOutsideIndex(const ListFilter& filter)
{
    m_view = CaseView::Other;
    const QSignalBlocker blocker(m_ui->TreeView2);
    m_ui->TreeView2->setCurrentItem(nullptr);
    showFilter(filter);
}

void kokyaku_cases::returnToSingle()
{
    m_view = CaseView::Single;
    const QSignalBlocker blocker(m_ui->TreeView2);
    m_ui->TreeView2->setCurrentItem(m_ui->TreeView2->topLevelItem(0));
    if (m_ofCustomer.condition.isEmpty()) {
        clear();
        return;
    }
    showFilter(m_ofCustomer);
    m_ui->lblKen->setCaption(NoCustomerCaption);
}

void kokyaku_cases::forgetCustomer()
{
    m_ofCustomer = {};
    if (m_view == CaseView::Single)
        clear();
}

void kokyaku_cases::refill()
{
    if (m_view == CaseView::Recent) { // the day may have changed
        m_filter = filterOfView(m_view);
        m_ui->lblKen->setCaption(m_filter.caption);
    }
    m_list->refill();
}

void kokyaku_cases::renameCustomer(const core::RecordKey& customer, const QString& name)
{
    const ListFilter renamed = casesOfCustomer(customer, name);
    if (customer.isNone() || renamed.condition != m_ofCustomer.condition || renamed == m_ofCustomer)
        return;
    if (m_filter == m_ofCustomer) {
        m_filter = renamed;
        m_ui->lblKen->setCaption(renamed.caption);
    }
    m_ofCustomer = renamed;
}

bool kokyaku_cases::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        m_beforePress = m_ui->TreeView2->currentItem();
    return QWidget::eventFilter(watched, event);
}

void kokyaku_cases::chooseView(QTreeWidgetItem* item)
{
    if (!item)
        return;
    m_view = static_cast<CaseView>(item->data(0, Qt::UserRole).toInt());
    if (m_view == CaseView::Single && m_ofCustomer.condition.isEmpty())
        clear();
    else
        showFilter(filterOfView(m_view));
}

ListFilter kokyaku_cases::filterOfView(CaseView view) const
{
    switch (view) {
    case CaseView::Single:
    case CaseView::Other:
        break;
    case CaseView::Open:
        return openCases();
    case CaseView::Finished:
        return finishedCases();
    case CaseView::All:
        return allCases();
    case CaseView::Recent:
        return recentCases(*m_settings, m_file->clock.today());
    }
    return m_ofCustomer;
}

void kokyaku_cases::showFilter(const ListFilter& filter)
{
    m_filter = filter;
    m_ui->lblKen->setCaption(filter.caption);
    m_list->show(filter.ownOrder.isEmpty());
}

void kokyaku_cases::clear()
{
    m_ui->lblKen->setCaption(NoCustomerCaption);
    m_list->clear();
}

core::RecordKey kokyaku_cases::currentKey() const
{
    return core::RecordKey::fromText(m_ui->ListView2->currentKey());
}

QString kokyaku_cases::currentTitle() const
{
    const QModelIndex current = m_ui->ListView2->currentIndex();
    return current.isValid() ? current.siblingAtColumn(3).data().toString() : QString();
}

QAbstractButton& kokyaku_cases::option()
{
    return *m_ui->optKen;
}

ui::ListView& kokyaku_cases::view()
{
    return *m_ui->ListView2;
}

// The row gets the key of its new state, so that the next edit asks no false question.
void kokyaku_cases::ListView2_ItemCheck(int row, bool print)
{
    core::ListRow shown = m_list->model().rowAt(row);
    const auto key = core::RecordKey::fromText(shown.key);
    const std::optional<KeptCase> before = readCase(*m_file, key);
    if (setCasePrint(*m_file, key, print) != records::SaveResult::Saved) {
        refill();
        return;
    }
    if (before && before->key.stamp != key.stamp) {
        refill(); // another copy had changed what the row shows
        return;
    }
    if (const std::optional<KeptCase> kept = readCase(*m_file, key)) {
        shown.key = kept->key.toText();
        shown.checked = kept->fields.print;
        m_list->model().replaceRow(row, shown);
    }
}

void kokyaku_cases::chooseNode(int number)
{
    if (QTreeWidgetItem* const item = m_ui->TreeView2->topLevelItem(number))
        m_ui->TreeView2->setCurrentItem(item);
}

int kokyaku_cases::chosenNode() const
{
    return m_view == CaseView::Other ? 0 : m_ui->TreeView2->currentIndex().row();
}

// The check boxes stand in the first column that is shown, the words for the colours beside the
// date.
void kokyaku_cases::showDateColumns()
{
    const bool registered = m_settings->caseDateShown != PlannedDateAlone;
    const bool planned = m_settings->caseDateShown != RegisteredDateAlone;
    m_list->model().setCheckColumn(registered ? RegisteredColumn : PlannedColumn);
    m_list->model().setEmphasis(plannedLooks(), planned ? PlannedColumn : RegisteredColumn);
    m_ui->ListView2->setColumnHidden(RegisteredColumn, !registered);
    m_ui->ListView2->setColumnHidden(PlannedColumn, !planned);
}

void kokyaku_cases::addViewsTo(QMenu& menu)
{
    for (int i = 0; i < m_ui->TreeView2->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = m_ui->TreeView2->topLevelItem(i);
        menu.addAction(item->text(0), this, [this, item] {
            if (item == m_ui->TreeView2->currentItem())
                chooseView(item);
            else
                m_ui->TreeView2->setCurrentItem(item);
        });
    }
}

void kokyaku_cases::showMenu(const QPoint& place)
{
    QMenu menu;
    menu.addActions(m_actions);
    menu.addSeparator();
    m_list->addTo(menu);
    menu.exec(place);
}

} // namespace customer
