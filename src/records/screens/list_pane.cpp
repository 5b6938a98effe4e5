#include "records/screens/list_pane.h"

#include "records/data/record_list.h"
#include "records/screens/selection.h"
#include "ui/list_view.h"
#include "ui/spare_width.h"
#include "ui_list_pane.h"

#include <QHeaderView>
#include <QLabel>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace records {
namespace {

QStringList headersOf(const ListDescription& list)
{
    QStringList headers;
    for (const ListColumn& column : list.columns)
        headers.append(column.header);
    return headers;
}

// The record's field that a column shows: the list's statement may have renamed it.
QString ownField(const ListColumn& column, const Record& record)
{
    const bool renamed = std::ranges::none_of(
        record.fields, [&column](const auto& own) { return own.first == column.field; });
    return renamed ? column.clause.mid(column.clause.lastIndexOf(u'.') + 1) : column.field;
}

} // namespace

ListPane::ListPane(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::list_pane>())
{
    m_ui->setupUi(this);
}

ListPane::~ListPane() = default;

void ListPane::initialize(Database& database, const ListDescription& list, const Settings& settings,
                          Selection& selection, const ListPaneParts& parts)
{
    m_data = &database;
    m_description = &list;
    m_settings = &settings;
    m_selection = &selection;
    m_parts = parts;
    m_ui->list->setObjectName(parts.list);
    m_ui->sides->setObjectName(parts.list + u"Sides"_s);
    m_ui->list->setAccessibleName(parts.title + u"リスト"_s);
    m_ui->pages->setObjectName(parts.pages);
    m_ui->pages->setAccessibleName(parts.title + u"リストのページ"_s);
    m_ui->counters->setObjectName(parts.counters);
    m_ui->caption->setObjectName(parts.caption);
    m_ui->option->setObjectName(parts.option);
    m_ui->option->setText(parts.title);
    m_ui->option->setToolTip(parts.title + u"リストを大きく表示する"_s);
    m_list =
        std::make_unique<ui::PagedList>(*m_ui->list, *m_ui->pages, m_ui->counters, headersOf(list));
    m_list->countPages(list.counters == CounterPolicy::Pages);
    if (!list.check.isEmpty())
        m_list->model().setCheckBoxes(true, parts.table != nullptr);
    if (!parts.looks.isEmpty())
        m_ui->list->keepLightBase();
    for (int column = 0; column < list.columns.size(); ++column) {
        if (const int width = list.columns.at(column).width)
            m_ui->list->header()->resizeSection(column, width);
    }
    QList<int> texts;
    for (int column = 0; column < list.columns.size(); ++column) {
        if (list.columns.at(column).isText)
            texts.append(column);
    }
    m_widths = new ui::SpareWidth(*m_ui->list, texts);
    connectList();
    clear();
}

void ListPane::connectList()
{
    connect(m_ui->pages, &ui::PageScrollBar::placeChanged, this, [this](const QString& place) {
        m_ui->place->setText(place);
        m_ui->place->setVisible(!place.isEmpty());
    });
    m_ui->place->setVisible(false);
    connect(m_list.get(), &ui::PagedList::counted, this,
            [this] { emit counted(m_list->model().source()->total()); });
    connect(&m_list->model(), &ui::PagedListModel::checksRequested, this, &ListPane::tickAll);
    connect(m_ui->list, &ui::ListView::selectedRowsChanged, this,
            [this] { m_selection->setCount(m_parts.number, m_ui->list->selectedRows()); });
    connect(m_ui->list, &ui::ListView::copied, this, [this](qsizetype rows) {
        emit said(QString::number(rows) + u" 件をコピーしました。"_s);
    });
    connect(m_ui->list, &ui::ListView::deletionAsked, this, &ListPane::deletionAsked);
    connect(m_ui->list, &ui::ListView::typed, this, &ListPane::goTo);
    connect(&m_list->model(), &ui::PagedListModel::checkRequested, this, &ListPane::tick);
    connect(&m_list->model(), &ui::PagedListModel::rowsVanished, this, &ListPane::refill);
    connect(m_ui->list, &ui::ListView::chosen, this, &ListPane::rowChosen);
    connect(m_ui->list, &ui::ListView::headerClicked, this, &ListPane::orderBy);
    connect(m_ui->list, &ui::ListView::menuRequested, this, &ListPane::showMenu);
}

void ListPane::addSide(QWidget* side, const QString& splitterName)
{
    m_ui->sides->setObjectName(splitterName);
    m_ui->sides->insertWidget(0, side);
    m_ui->sides->setSizes({130, 900});
    m_ui->sides->setStretchFactor(1, 1);
    setTabOrder(m_ui->option, side);
    setTabOrder(side, m_ui->list);
}

std::shared_ptr<core::ListSource> ListPane::open(const ListFilter& filter,
                                                 const std::optional<ListOrder>& clicked)
{
    std::shared_ptr<RecordList> rows =
        openList(*m_data, *m_description, filter, clicked, *m_settings);
    return rows->isReadable() ? rows : nullptr;
}

ui::PagedList::TableRows ListPane::tableRows()
{
    return [this] { return countRows(*m_data, *m_description); };
}

bool ListPane::showFilter(const ListFilter& filter)
{
    const std::optional<ListOrder> clicked =
        filter.ownOrder.isEmpty() ? m_clicked : std::optional<ListOrder>();
    auto rows = open(filter, clicked);
    if (!rows)
        return false;
    m_filter = filter;
    m_clicked = clicked;
    m_shown = true;
    setCaption(filter.caption);
    showHint();
    m_list->fill(std::move(rows), tableRows());
    showOrder();
    return true;
}

void ListPane::setCaption(const QString& caption)
{
    m_ui->caption->setCaption(caption);
}

void ListPane::renameFilter(const ListFilter& filter)
{
    m_filter = filter;
    setCaption(filter.caption);
}

void ListPane::showHint()
{
    m_ui->list->setHint(!m_shown             ? m_parts.notShown
                            : m_parts.noRows ? m_parts.noRows(m_filter)
                                             : QString());
}

// Letters typed in the list.
void ListPane::goTo(const QString& beginning)
{
    if (!m_shown)
        return;
    const bool found = m_list->turnToText(beginning);
    emit said(u"「"_s + beginning
              + (found ? u"」へ移動しました。"_s : u"」で始まる行はありません。"_s));
}

void ListPane::refill()
{
    if (!m_shown)
        return;
    if (auto rows = open(m_filter, m_clicked)) {
        m_list->refill(std::move(rows), tableRows());
        writeSelection();
    }
}

bool ListPane::follow()
{
    if (!m_shown)
        return true;
    auto rows = open(m_filter, m_clicked);
    if (!rows)
        return false;
    m_list->follow(std::move(rows), tableRows());
    writeSelection();
    return true;
}

void ListPane::clear(const QString& caption)
{
    m_shown = false;
    m_filter = {};
    setCaption(caption);
    showHint();
    m_list->clear();
}

bool ListPane::selectRecord(const core::RecordKey& key)
{
    m_wasChosen = false;
    if (!m_shown || !m_list->turnTo(key))
        return false;
    if (!m_wasChosen) { // it was the selected one before
        writeSelection();
        emit chosen(false, -1);
    }
    return true;
}

void ListPane::forgetSelection()
{
    m_ui->list->setCurrentIndex({});
}

void ListPane::setMarkedColumns(int check, int label)
{
    m_list->model().setCheckColumn(check);
    m_list->model().setEmphasis(m_parts.looks, label);
    // What says in words what the colours say is never cut.
    int words = 0;
    for (const ui::Emphasis& look : std::as_const(m_parts.looks))
        words = qMax(words, m_ui->list->fontMetrics().horizontalAdvance(look.label));
    constexpr int Box = 40; // check box and margins
    const int date = m_ui->list->fontMetrics().horizontalAdvance(u"2000/00/00(金)（）"_s);
    m_widths->setLeast(label, words + date + Box);
}

void ListPane::showColumns(const QList<int>& hidden)
{
    for (int column = 0; column < m_description->columns.size(); ++column)
        m_ui->list->setColumnHidden(column, hidden.contains(column));
    m_widths->share();
}

// The page of the selected record is turned to before the rows are shown: it stays selected, and
// the lists that hang on it stay.
void ListPane::orderBy(int column)
{
    const bool again = m_clicked && columnOf(*m_description, *m_clicked) == column;
    const std::optional<ListOrder> order =
        orderOf(*m_description, column, again && !m_clicked->descending);
    auto rows = m_shown && order ? open(m_filter, order) : nullptr;
    if (!rows) {
        showOrder(); // the header has marked the column by itself
        return;
    }
    m_clicked = order;
    m_list->reorder(std::move(rows), tableRows());
    writeSelection();
    showOrder();
}

void ListPane::showOrder()
{
    const std::optional<ListOrder> order =
        m_clicked ? m_clicked : standingOrder(*m_description, m_filter, *m_settings);
    const int column = order ? columnOf(*m_description, *order) : -1;
    QHeaderView& header = *m_ui->list->header();
    header.setSortIndicatorShown(column >= 0);
    if (column >= 0)
        header.setSortIndicator(column,
                                order->descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void ListPane::writeSelection()
{
    const QModelIndex current = m_ui->list->currentIndex();
    QString title;
    for (int column = 0; column < m_description->columns.size(); ++column) {
        if (m_description->columns.at(column).field == m_parts.titleField && current.isValid())
            title = current.siblingAtColumn(column).data().toString();
    }
    m_selection->set(m_parts.number, core::RecordKey::fromText(m_ui->list->currentKey()), title);
}

void ListPane::rowChosen(int row, int column, bool another)
{
    m_wasChosen = row >= 0;
    writeSelection();
    emit chosen(another, column);
}

// The row gets the key of its new state, so that the next edit asks no false question.
void ListPane::tick(int row, bool ticked)
{
    core::ListRow shown = m_list->model().rowAt(row);
    Record record;
    if (writeFields(*m_data, *m_parts.table, core::RecordKey::fromText(shown.key),
                    {{m_description->check, ticked ? 1 : 0}}, &record)
            != SaveResult::Saved
        || m_list->model().rowAt(row).key != shown.key) { // the list was read again meanwhile
        refill();
        return;
    }
    for (int column = 0; column < m_description->columns.size(); ++column) {
        const QString field = ownField(m_description->columns.at(column), record);
        const bool isOwn = std::ranges::any_of(
            record.fields, [&field](const auto& own) { return own.first == field; });
        if (isOwn && record.text(field) != shown.cells.value(column)) {
            refill(); // another copy had changed what the row shows
            return;
        }
    }
    shown.key = record.key.toText();
    shown.checked = ticked;
    m_list->model().replaceRow(row, shown);
    writeSelection();
}

// Rows that are as they shall be already are left alone.
void ListPane::tickAll(const QList<int>& rows, bool ticked)
{
    QList<core::RecordKey> keys;
    for (const int row : rows) {
        const core::ListRow shown = m_list->model().rowAt(row);
        const core::RecordKey key = core::RecordKey::fromText(shown.key);
        if (shown.checked != ticked && !key.isNone())
            keys.append(key);
    }
    const SaveResult result =
        writeFieldsOfAll(*m_data, *m_parts.table, keys, {{m_description->check, ticked ? 1 : 0}});
    const QItemSelection selected = m_ui->list->selectionModel()->selection();
    QList<std::pair<int, int>> ranges;
    for (const QItemSelectionRange& range : selected)
        ranges.append({range.top(), range.bottom()});
    const int before = m_list->model().rowCount();
    refill();
    if (m_list->model().rowCount() == before) {
        for (const auto& [top, bottom] : std::as_const(ranges))
            m_ui->list->selectionModel()->select(
                {m_list->model().index(top, 0), m_list->model().index(bottom, 0)},
                QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    if (result == SaveResult::Saved)
        emit said(QString::number(keys.size()) + u" 件の印を変えました。"_s);
}

QAbstractButton& ListPane::option()
{
    return *m_ui->option;
}

ui::ListView& ListPane::view()
{
    return *m_ui->list;
}

void ListPane::showMenu(const QPoint& place)
{
    QMenu menu;
    menu.addActions(m_actions);
    menu.addSeparator();
    QAction* const copy =
        menu.addAction(u"コピー(&C)\tCtrl+C"_s, m_ui->list, &ui::ListView::copySelection);
    copy->setEnabled(m_ui->list->selectionModel()->hasSelection());
    QMenu* const order = menu.addMenu(u"並べ替え(&T)"_s);
    order->setEnabled(m_shown);
    for (int column = 0; column < m_description->columns.size(); ++column) {
        if (!m_description->columns.at(column).clause.isEmpty())
            order->addAction(m_description->columns.at(column).header, this,
                             [this, column] { orderBy(column); });
    }
    menu.addAction(u"リスト表示を更新(&R)\tF5"_s, this, &ListPane::refill)->setEnabled(m_shown);
    menu.exec(place);
}

} // namespace records
