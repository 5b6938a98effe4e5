#include "customer/screens/case_view.h"

#include "core/data/clock.h"
#include "customer/data/case_index.h"
#include "customer/data/cases.h"
#include "customer/data/settings.h"
#include "customer/screens/lists.h"
#include "records/screens/desk.h"
#include "records/screens/index_pane.h"
#include "records/screens/list_pane.h"
#include "text/dates.h"
#include "ui/list_view.h"

#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace customer {
namespace {

// Values of 件名表示日; any other shows both.
constexpr int RegisteredDateAlone = 1;
constexpr int PlannedDateAlone = 2;
const QString NoCustomerCaption = u"件名表示"_s;
const QString KeptDay = u"day:"_s;
const QString KeptText = u"text:"_s;

QHash<int, ui::Emphasis> plannedLooks()
{
    return {{PlannedLater, {QColor(0x0d, 0x47, 0xa1), {}, u"予定"_s}},
            {PlannedToday, {QColor(0x8a, 0x4b, 0x00), QColor(0xff, 0xf3, 0xd6), u"本日"_s}},
            {PlannedBefore, {QColor(0xa3, 0x15, 0x15), QColor(0xff, 0xe8, 0xe6), u"超過"_s}}};
}

} // namespace

CaseView::CaseView(records::ListPane& list, records::IndexPane& index, const records::Desk& desk,
                   const records::Settings& settings, records::Selection& selection)
    : QObject(&list), m_list(list), m_index(index), m_desk(desk), m_settings(settings)
{
    m_list.initialize(
        desk.file, caseList(), settings, selection,
        {u"ListView2"_s, u"HScroll2"_s, u"cntKen"_s, u"lblKen"_s, u"optKen"_s, u"件名"_s,
         Lists::Cases, u"件名"_s, &caseTable(), plannedLooks(),
         u"顧客を選ぶと、その件名がここに並びます。"_s, [this](const records::ListFilter& filter) {
             return filter == m_ofCustomer ? u"件名はありません。Ctrl+K で追加します。"_s
                                           : u"該当する件名はありません。"_s;
         }});
    connect(&m_list, &records::ListPane::counted, this, [this](qint64 rows) {
        if (std::exchange(m_searching, false))
            emit searched(rows);
    });
    m_list.addSide(&m_index, u"split2"_s);
    m_list.clear(NoCustomerCaption);
    m_index.initialize(u"TreeView2"_s, u"件名の表示"_s, [this] {
        return records::IndexContext{m_settings, m_desk.file.clock.today()};
    });
    m_index.tree()->setMinimumWidth(90);
    m_index.setNodes(caseIndex([this](const records::IndexContext&) {
        return m_ofCustomer.condition.isEmpty() ? std::nullopt : std::optional(m_ofCustomer);
    }));
    m_index.markFirst();
    connect(&m_index, &records::IndexPane::chosen, this, &CaseView::showNode);
    connect(&m_index, &records::IndexPane::choseNothing, this, [this] {
        m_isOutside = false;
        m_outside.clear();
        m_list.clear(NoCustomerCaption);
    });
    showDateColumns();
}

// The check boxes stand in the first column that is shown, the words for the colours beside the
// date.
void CaseView::showDateColumns()
{
    const int shown = m_settings[settings::CaseDateShown];
    const bool registered = shown != PlannedDateAlone;
    const bool planned = shown != RegisteredDateAlone;
    m_list.setMarkedColumns(registered ? RegisteredColumn : PlannedColumn,
                            planned ? PlannedColumn : RegisteredColumn);
    QList<int> hidden;
    if (!registered)
        hidden.append(RegisteredColumn);
    if (!planned)
        hidden.append(PlannedColumn);
    m_list.showColumns(hidden);
}

void CaseView::showNode(const records::ListFilter& filter)
{
    if (!m_list.showFilter(filter)) {
        m_index.goBack();
        return;
    }
    m_isOutside = false;
    m_outside.clear();
    emit shown();
}

void CaseView::showCasesOf(const core::RecordKey& customer, const QString& name)
{
    const records::ListFilter before = std::exchange(m_ofCustomer, casesOfCustomer(customer, name));
    if (!m_list.showFilter(m_ofCustomer)) {
        m_ofCustomer = before; // index and list stay as they are
        return;
    }
    m_isOutside = false;
    m_outside.clear();
    m_index.markFirst();
}

// What no node of the index shows: none of them is marked then, so that each can be chosen.
bool CaseView::showOutsideIndex(const records::ListFilter& filter, const QString& kept)
{
    if (!m_list.showFilter(filter))
        return false;
    m_isOutside = true;
    m_outside = kept;
    m_index.markNone();
    emit shown();
    return true;
}

void CaseView::showCase(const core::RecordKey& ofCase)
{
    if (showOutsideIndex(singleCase(ofCase), {}))
        m_list.view().selectRow(0);
}

void CaseView::showDay(QDate day)
{
    showOutsideIndex(casesOfDay(day), KeptDay + text::formatPlainDate(day));
}

void CaseView::showText(const QString& text)
{
    m_searching = showOutsideIndex(casesWithText(text), KeptText + text);
}

void CaseView::showOutside(const QString& kept)
{
    if (kept.startsWith(KeptText)) {
        showOutsideIndex(casesWithText(kept.mid(KeptText.size())), kept);
    } else if (kept.startsWith(KeptDay)) {
        if (const std::optional<QDate> day = text::parseDate(kept.mid(KeptDay.size())))
            showDay(*day);
    }
}

void CaseView::returnToSingle()
{
    m_index.markFirst();
    m_isOutside = false;
    m_outside.clear();
    if (m_ofCustomer.condition.isEmpty() || !m_list.showFilter(m_ofCustomer))
        m_list.clear();
    m_list.setCaption(NoCustomerCaption);
}

void CaseView::forgetCustomer()
{
    m_ofCustomer = {};
    if (!m_isOutside && m_index.chosenNumber() == 0)
        m_list.clear(NoCustomerCaption);
}

void CaseView::refill()
{
    // The day may have changed.
    const records::ListFilter recent = recentCases({m_settings, m_desk.file.clock.today()});
    const records::ListFilter before = m_list.filter();
    if (before.ownOrder == recent.ownOrder)
        m_list.renameFilter(recent);
    if (!m_list.follow())
        m_list.renameFilter(before); // what is shown are still the old days
}

void CaseView::renameCustomer(const core::RecordKey& customer, const QString& name)
{
    const records::ListFilter renamed = casesOfCustomer(customer, name);
    if (customer.isNone() || renamed.condition != m_ofCustomer.condition || renamed == m_ofCustomer)
        return;
    if (m_list.filter() == m_ofCustomer)
        m_list.renameFilter(renamed);
    m_ofCustomer = renamed;
}

void CaseView::addViewsTo(QMenu& menu)
{
    m_index.addTo(menu);
}

} // namespace customer
