#include "customer/screens/kokyaku.h"

#include "core/data/clock.h"
#include "core/data/shared.h"
#include "customer/data/customer_index.h"
#include "customer/data/customers.h"
#include "customer/data/logs.h"
#include "customer/data/settings.h"
#include "customer/data/shortcuts.h"
#include "customer/screens/case_view.h"
#include "customer/screens/johokokyaku.h"
#include "customer/screens/klogpreview.h"
#include "customer/screens/kokyaku_commands.h"
#include "customer/screens/lists.h"
#include "records/screens/floating_windows.h"
#include "records/screens/status_line.h"
#include "text/dates.h"
#include "ui/list_view.h"
#include "ui_kokyaku.h"

#include <QAbstractButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;
using records::ListPane;

namespace customer {
namespace {

constexpr int IndexWidth = 260;
const QString KeptCases = u"cases"_s;

records::FloatingWindows::Description floatingWindows()
{
    return {{{Lists::Customers, u"MenuKokyakuSyosai"_s, u"顧客詳細を表示(&I)"_s,
              settings::CustomerDetail, settings::CustomerClickColumn},
             {Lists::Cases, u"MenuKenSyosai"_s, u"件名の顧客詳細を表示(&J)"_s, settings::CaseDetail,
              settings::CaseClickColumn}},
            {Lists::Logs, u"MenuRogPre"_s, u"ログプレビューを表示(&P)"_s, settings::PreviewShown,
             settings::LogClickColumn},
            settings::DetailLeft,
            settings::DetailTop,
            u"顧客詳細の表示位置を保存(&W)"_s,
            u"顧客詳細を表示してから実行して下さい。"_s};
}

QString customersMissing(const records::ListFilter& filter)
{
    return filter.condition.isEmpty() ? u"Ctrl+N で最初の顧客を登録します。"_s
                                      : u"該当する顧客はありません。"_s;
}

QString logsMissing(const records::ListFilter&)
{
    return u"ログはありません。Ctrl+L で追加します。"_s;
}

} // namespace

kokyaku::kokyaku(std::unique_ptr<CustomerFile> file, core::Shared& shared, core::Opener& opener,
                 ui::FileChooser& files, records::Drafts& drafts, ui::UserSettings& userSettings,
                 QWidget* parent)
    : MainShell({*file, shared, opener, files, drafts, userSettings}, parent),
      m_ui(std::make_unique<Ui::kokyaku>()),
      m_file(std::move(file))
{
    m_ui->setupUi(this);
    Form_Load();
}

kokyaku::~kokyaku()
{
    if (m_file->connection.isOpen())
        kokyaku::Form_Unload();
}

void kokyaku::Form_Load()
{
    m_commands = new KokyakuCommands(desk(), selection(), this);
    records::FloatingWindows::Description windows = floatingWindows();
    windows.lists = {{Lists::Customers, &m_ui->customers->view()},
                     {Lists::Cases, &m_ui->cases->view()},
                     {Lists::Logs, &m_ui->logs->view()}};
    windows.toolBar = m_ui->Toolbar1;
    m_windows = new records::FloatingWindows(desk(), settings(), selection(), windows,
                                             new johokokyaku(desk(), settings(), selection(), this),
                                             new klogpreview(desk().file, this));
    makePanes();
    fillIndex();
    m_commands->addTools(*m_ui->Toolbar1, m_ui->Toolbar1->actions().first());
    assemble({{m_ui->index->tree(), &m_ui->customers->view(), m_cases->index().tree(),
               &m_ui->cases->view(), &m_ui->logs->view(), &m_ui->files->view(),
               m_ui->schedule->calendar(), &m_ui->schedule->view()},
              {m_ui->customers, m_ui->cases, m_ui->logs},
              m_ui->splitLists,
              m_windows});
    addMenus();
    connectLists();
    connectCommands();
    m_ui->splitDesk->setSizes({IndexWidth, width() - IndexWidth});
    m_ui->splitDesk->setStretchFactor(1, 1);
    m_ui->splitIndex->setSizes({290, 350});
    m_ui->splitIndex->setStretchFactor(0, 1);
    m_ui->splitLists->setSizes({230, 240, 170});
    restoreDesk();
    m_cases->showDateColumns();
    restoreView();
    m_ui->customers->view().setFocus();
}

void kokyaku::makePanes()
{
    m_ui->customers->initialize(desk().file, customerList(), settings(), selection(),
                                {u"ListView1"_s,
                                 u"HScroll1"_s,
                                 u"cntKokya"_s,
                                 u"lblKokya"_s,
                                 u"optKokya"_s,
                                 u"顧客"_s,
                                 Lists::Customers,
                                 u"表示名"_s,
                                 &customerTable(),
                                 {},
                                 {},
                                 customersMissing});
    m_ui->logs->initialize(desk().file, logList(), settings(), selection(),
                           {u"ListView3"_s,
                            u"HScroll3"_s,
                            u"cntRog"_s,
                            u"lblRog"_s,
                            u"optRog"_s,
                            u"ログ"_s,
                            Lists::Logs,
                            u"Rログ"_s,
                            nullptr,
                            {},
                            u"件名を選ぶと、そのログがここに並びます。"_s,
                            logsMissing});
    m_cases = new CaseView(*m_ui->cases, *new records::IndexPane, desk(), settings(), selection());
    m_ui->files->initialize(desk(), caseFiles(), u"件名が選択されていません。"_s);
    m_ui->schedule->initialize(desk().file, selection(), Lists::Schedule);
    m_ui->schedule->showEntries(settings()[settings::ShowSchedule] == 0);
    m_ui->index->initialize(u"TreeView1"_s, u"顧客の索引"_s, [this] {
        return records::IndexContext{settings(), desk().file.clock.today()};
    });
}

void kokyaku::fillIndex()
{
    m_ui->index->setNodes({customerIndex(desk().file)});
}

void kokyaku::connectLists()
{
    connect(m_ui->index, &records::IndexPane::chosen, this,
            [this](const records::ListFilter& filter) {
                const QString& order = m_ui->customers->filter().ownOrder;
                if (m_refreshing && !order.isEmpty() && filter.ownOrder == order)
                    return; // the same of another day, which the refill reads
                bringListsForward();
                if (!m_ui->customers->showFilter(filter))
                    m_ui->index->goBack();
            });
    connect(m_cases, &CaseView::shown, this, &kokyaku::bringListsForward);
    connect(m_cases, &CaseView::searched, this, [this](qint64 hits) {
        m_ui->cases->view().setFocus(Qt::ShortcutFocusReason);
        desk().say(hits > 0 ? QString::number(hits) + u" 件見つかりました。"_s
                            : u"見つかりませんでした。"_s);
    });
    connect(m_ui->customers, &ListPane::chosen, this, &kokyaku::customerChosen);
    connect(m_ui->cases, &ListPane::chosen, this, &kokyaku::caseChosen);
    connect(m_ui->logs, &ListPane::chosen, this, &kokyaku::logChosen);
}

void kokyaku::connectCommands()
{
    connect(m_commands, &records::RecordCommands::written, this, &kokyaku::recordWritten);
    for (const int list : {Lists::Customers, Lists::Cases, Lists::Logs})
        connect(paneOf(list), &ListPane::deletionAsked, m_commands,
                [this, list] { m_commands->removeFrom(list); });
    connect(m_ui->schedule, &records::SchedulePane::deletionAsked, m_commands,
            [this] { m_commands->removeFrom(Lists::Schedule); });
    connect(&m_ui->customers->view(), &ui::ListView::opened, m_commands,
            &KokyakuCommands::editCustomer);
    connect(&m_ui->cases->view(), &ui::ListView::opened, m_commands, &KokyakuCommands::editCase);
    connect(&m_ui->logs->view(), &ui::ListView::opened, m_commands, &KokyakuCommands::editLog);
    connect(&m_ui->schedule->view(), &ui::ListView::opened, m_commands,
            &KokyakuCommands::editSchedule);
}

ListPane* kokyaku::paneOf(int list)
{
    const QHash<int, ListPane*> panes{{Lists::Customers, m_ui->customers},
                                      {Lists::Cases, m_ui->cases},
                                      {Lists::Logs, m_ui->logs}};
    return panes.value(list);
}

void kokyaku::bringListsForward()
{
    m_ui->SSTab1->setCurrentWidget(m_ui->pageLists);
}

// After a customer or a case the list of logs is emptied; what was saved is selected, which fills
// it again.
void kokyaku::recordWritten(const records::Written& written)
{
    const bool deleted = written.how == records::Written::How::Deleted;
    const int list = written.kind.list;
    if (list == Lists::Schedule) {
        m_ui->schedule->refill();
    } else if (list == Lists::Logs) {
        // The list may have been emptied when the case was saved.
        if (!m_ui->logs->isShown())
            showLogsOfCase();
        refillLists();
    } else {
        if (deleted && list == Lists::Customers)
            m_ui->customers->forgetSelection();
        else if (deleted)
            m_cases->returnToSingle();
        refillCustomersAndCases();
        m_ui->logs->clear();
        m_windows->refill();
    }
    desk().say(written.told());
    if (!deleted)
        showSaved(written);
}

void kokyaku::showSaved(const records::Written& written)
{
    ListPane* const pane = paneOf(written.kind.list);
    const bool seen =
        pane ? pane->selectRecord(written.key) : m_ui->schedule->selectEntry(written.key);
    if (!seen)
        status().offer(written.told() + u"今の一覧にはありません。"_s,
                       [this, written] { goTo(written); });
}

// To a record that lies outside what the lists show.
void kokyaku::goTo(const records::Written& written)
{
    bringListsForward();
    switch (written.kind.list) {
    case Lists::Customers:
        m_ui->index->chooseNumber(0);
        m_ui->customers->selectRecord(written.key);
        m_ui->customers->view().setFocus();
        return;
    case Lists::Cases:
        m_cases->showCase(written.key);
        m_ui->cases->view().setFocus();
        return;
    case Lists::Logs:
        m_cases->showCase({0, written.key.mark, written.record.number(u"件名ID"), {}});
        m_ui->logs->selectRecord(written.key);
        m_ui->logs->view().setFocus();
        return;
    default:
        if (const std::optional<QDate> day = text::parseDate(written.record.text(u"日付")))
            m_ui->schedule->chooseDay(*day);
        m_ui->schedule->selectEntry(written.key);
        m_ui->schedule->view().setFocus();
    }
}

// A click on the customer that is chosen already does not take the case list away from a view of
// its own.
void kokyaku::customerChosen(bool another, int column)
{
    if (!selection().has(Lists::Customers))
        m_cases->forgetCustomer();
    else if (another)
        showCasesOfCustomer();
    m_windows->chosen(Lists::Customers, column);
}

void kokyaku::showCasesOfCustomer()
{
    m_cases->showCasesOf(selection().key(Lists::Customers), selection().title(Lists::Customers));
}

void kokyaku::caseChosen(bool another, int column)
{
    if (!selection().has(Lists::Cases))
        m_ui->logs->clear();
    else if (another || !m_ui->logs->isShown())
        showLogsOfCase();
    if (another) {
        m_ui->files->showFilesOf(selection().key(Lists::Cases), selection().title(Lists::Cases));
    }
    m_windows->chosen(Lists::Cases, column);
}

void kokyaku::showLogsOfCase()
{
    if (selection().has(Lists::Cases))
        m_ui->logs->showFilter(
            logsOfCase(selection().key(Lists::Cases), selection().title(Lists::Cases)));
}

void kokyaku::logChosen(bool /*another*/, int column)
{
    m_windows->chosen(Lists::Logs, column);
}

// The captions follow what was renamed.
void kokyaku::refillCustomersAndCases()
{
    // The day may have changed.
    const records::ListFilter recent = recentCustomers({settings(), desk().file.clock.today()});
    const records::ListFilter before = m_ui->customers->filter();
    if (before.ownOrder == recent.ownOrder)
        m_ui->customers->renameFilter(recent);
    if (!m_ui->customers->follow())
        m_ui->customers->renameFilter(before); // what is shown are still the old days
    m_cases->renameCustomer(selection().key(Lists::Customers), selection().title(Lists::Customers));
    m_cases->refill();
    m_ui->files->renameOwner(selection().key(Lists::Cases), selection().title(Lists::Cases));
}

void kokyaku::refillLists()
{
    refillCustomersAndCases();
    m_ui->logs->refill();
    m_ui->files->refill();
    m_ui->schedule->refill();
    m_windows->refill();
}

void kokyaku::refreshAll()
{
    m_refreshing = true;
    fillIndex();
    m_refreshing = false;
    refillLists();
    if (!m_ui->logs->isShown())
        showLogsOfCase(); // emptied after a save
}

// What the lists showed when the file was closed last, as long as 前回表示 is する.
void kokyaku::restoreView()
{
    const bool remember = settings()[settings::RememberView] == 0;
    bringListsForward();
    m_ui->index->chooseNumber(remember ? settings()[settings::CustomerView] : 0);
    if (!m_ui->customers->isShown())
        m_ui->index->chooseNumber(0); // the stored search was changed to one that is refused
    const int caseView = remember ? settings()[settings::CaseView] : 0;
    if (caseView != 0)
        m_cases->index().chooseNumber(caseView);
    else if (remember)
        m_cases->showOutside(keptText(KeptCases));
}

void kokyaku::saveView()
{
    if (settings()[settings::RememberView] != 0)
        return;
    keepText(KeptCases, m_cases->shownOutside());
    const records::SettingValues view = {{settings::CustomerView, m_ui->index->chosenNumber()},
                                         {settings::CaseView, m_cases->index().chosenNumber()}};
    const bool same = std::ranges::all_of(
        view, [this](const auto& each) { return settings()[each.first] == each.second; });
    if (!same)
        saveSettings(desk().file, settings(), view);
}

void kokyaku::Form_Unload()
{
    m_windows->closeAll();
    m_ui->files->clear();
    m_ui->customers->clear();
    m_ui->cases->clear();
    m_ui->logs->clear();
    m_ui->schedule->clear();
    CloseCustomerFile(*m_file);
    desk().shared.CustomerDataPath.clear();
}

} // namespace customer
