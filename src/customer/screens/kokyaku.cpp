#include "customer/screens/kokyaku.h"

#include "core/data/messages.h"
#include "core/data/opener.h"
#include "core/data/shared.h"
#include "customer/screens/kokyaku_commands.h"
#include "customer/screens/kokyaku_windows.h"
#include "ui/icons.h"
#include "ui/list_view.h"
#include "ui/pane_keys.h"
#include "ui/window_placement.h"
#include "ui_kokyaku.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QShortcut>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace customer {

namespace {

constexpr QSize FirstSize(1280, 700);
constexpr int IndexWidth = 260;
constexpr double LargeShare = 0.55; // of the height, for the list that was chosen to be large

// How a row that has just become the current one was chosen.
int selectedBy()
{
    return QGuiApplication::mouseButtons() == Qt::NoButton ? KokyakuWindows::ByKey
                                                           : KokyakuWindows::BeingClicked;
}

} // namespace

kokyaku::kokyaku(std::unique_ptr<CustomerFile> file, core::Shared& shared, core::Opener& opener,
                 ui::FileChooser& files, records::Drafts& drafts, ui::UserSettings& userSettings,
                 QWidget* parent)
    : QMainWindow(parent),
      m_ui(std::make_unique<Ui::kokyaku>()),
      m_file(std::move(file)),
      m_desk{*m_file, shared, opener, files, drafts, userSettings}
{
    m_ui->setupUi(this);
    Form_Load();
}

kokyaku::~kokyaku()
{
    if (m_file->connection.isOpen())
        Form_Unload();
}

void kokyaku::Form_Load()
{
    m_settings = readSettings(*m_file);
    const std::pair<QAction*, QString> icons[] = {{m_ui->ToolKyakuAdd, u"customer_add"_s},
                                                  {m_ui->ToolKenAdd, u"case_add"_s},
                                                  {m_ui->ToolRogAdd, u"log_add"_s},
                                                  {m_ui->ToolYoteiAdd, u"schedule_add"_s},
                                                  {m_ui->ToolHelp, u"help"_s}};
    for (const auto& [action, name] : icons) {
        action->setIcon(ui::icon(name));
        m_ui->Toolbar1->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    }
    connect(m_ui->Toolbar1, &QToolBar::actionTriggered, this, &kokyaku::Toolbar1_ButtonClick);
    m_commands = new KokyakuCommands(
        m_desk, [this] { return selection(); }, this);
    m_windows = new KokyakuWindows(m_desk, m_settings, this);
    addMenus();
    addKeys();
    showStatus();
    m_ui->index->initialize(*m_file, m_settings);
    m_ui->customers->initialize(*m_file, m_settings);
    m_ui->cases->initialize(*m_file, m_settings);
    m_ui->logs->initialize(*m_file, m_settings);
    m_ui->files->initialize(m_desk);
    m_ui->schedule->initialize(*m_file);
    m_ui->schedule->showEntries(m_settings.showSchedule == 0);
    connectPanes();
    connectCommands();
    connectWindows();
    restoreDesk();
    restoreView();
    m_ui->customers->option().setChecked(true);
    m_ui->customers->view().setFocus();
    customerChosen();
}

void kokyaku::connectPanes()
{
    connect(m_ui->index, &kokyaku_index::chosen, m_ui->customers, &kokyaku_customers::showFilter);
    connect(m_ui->customers, &kokyaku_customers::currentChanged, this,
            [this] { customerChosen(selectedBy()); });
    connect(m_ui->cases, &kokyaku_cases::currentChanged, this,
            [this] { caseChosen(selectedBy()); });
    auto* const options = new QButtonGroup(this);
    options->addButton(&m_ui->customers->option(), 0);
    options->addButton(&m_ui->cases->option(), 1);
    options->addButton(&m_ui->logs->option(), 2);
    connect(options, &QButtonGroup::idToggled, this, [this](int list, bool chosen) {
        if (chosen)
            ui::giveShare(*m_ui->splitLists, list, LargeShare);
    });
}

void kokyaku::connectCommands()
{
    for (const auto written : {&KokyakuCommands::customerWritten, &KokyakuCommands::caseWritten}) {
        connect(m_commands, written, this, [this] {
            refillCustomersAndCases();
            m_ui->logs->clear();
            m_windows->refill();
        });
    }
    connect(m_commands, &KokyakuCommands::logWritten, this, [this] {
        // The list may have been emptied when the case was saved.
        if (!m_ui->logs->isShown() && !m_ui->cases->currentKey().isNone())
            m_ui->logs->showLogsOf(m_ui->cases->currentKey(), m_ui->cases->currentTitle());
        refillLists();
    });
    connect(m_commands, &KokyakuCommands::scheduleWritten, m_ui->schedule,
            &kokyaku_schedule::refill);
    connect(m_commands, &KokyakuCommands::customerRemoved, this,
            [this] { m_ui->customers->view().setCurrentIndex({}); });
    connect(m_commands, &KokyakuCommands::caseRemoved, m_ui->cases, &kokyaku_cases::returnToSingle);
    connect(&m_ui->customers->view(), &ui::ListView::opened, m_commands,
            &KokyakuCommands::editCustomer);
    connect(&m_ui->cases->view(), &ui::ListView::opened, m_commands, &KokyakuCommands::editCase);
    connect(&m_ui->logs->view(), &ui::ListView::opened, m_commands, &KokyakuCommands::editLog);
    connect(&m_ui->schedule->view(), &ui::ListView::opened, this, [this] {
        m_commands->editSchedule(core::RecordKey::fromText(m_ui->schedule->view().currentKey()));
    });
}

// A click on the row that is selected already counts as well: its window or its logs may not be
// shown.
void kokyaku::connectWindows()
{
    connect(&m_ui->customers->view(), &QTreeView::clicked, this,
            [this](const QModelIndex& cell) { customerChosen(cell.column()); });
    connect(&m_ui->cases->view(), &QTreeView::clicked, this,
            [this](const QModelIndex& cell) { caseChosen(cell.column()); });
    connect(&m_ui->logs->view(), &QTreeView::clicked, this,
            [this](const QModelIndex& cell) { logChosen(cell.column()); });
    connect(m_ui->logs, &kokyaku_logs::currentChanged, this, [this] { logChosen(selectedBy()); });
}

Selection kokyaku::selection() const
{
    return {m_ui->customers->currentKey(), m_ui->customers->currentName(),
            m_ui->cases->currentKey(),     m_ui->cases->currentTitle(),
            m_ui->logs->currentKey(),      m_ui->schedule->day()};
}

void kokyaku::customerChosen(int column)
{
    const core::RecordKey key = m_ui->customers->currentKey();
    if (key.isNone())
        m_ui->cases->forgetCustomer();
    else if (column < 0)
        m_ui->cases->showCasesOf(key, m_ui->customers->currentName());
    m_windows->customerSelected(key, column);
    m_commands->showSelection();
    m_ui->ToolKenAdd->setEnabled(!key.isNone());
    m_casesOfCustomer->setEnabled(!key.isNone());
}

void kokyaku::caseChosen(int column)
{
    const core::RecordKey key = m_ui->cases->currentKey();
    if (key.isNone())
        m_ui->logs->clear();
    else if (column < 0 || !m_ui->logs->isShown())
        m_ui->logs->showLogsOf(key, m_ui->cases->currentTitle());
    if (column < 0)
        m_ui->files->showFilesOf(key, m_ui->cases->currentTitle());
    m_windows->caseSelected(key, column);
    m_commands->showSelection();
    m_ui->ToolRogAdd->setEnabled(!key.isNone());
}

void kokyaku::logChosen(int column)
{
    const core::RecordKey key = m_ui->logs->currentKey();
    m_windows->logSelected(key, column);
    m_caseOfLog->setEnabled(!key.isNone());
    m_commands->showSelection();
}

// The captions follow what was renamed.
void kokyaku::refillCustomersAndCases()
{
    m_ui->customers->refill();
    m_ui->cases->renameCustomer(m_ui->customers->currentKey(), m_ui->customers->currentName());
    m_ui->cases->refill();
    m_ui->files->renameCase(m_ui->cases->currentKey(), m_ui->cases->currentTitle());
}

void kokyaku::refillLists()
{
    refillCustomersAndCases();
    m_ui->logs->refill();
    m_ui->files->refill();
    m_ui->schedule->refill();
    m_windows->refill();
}

void kokyaku::Toolbar1_ButtonClick(QAction* button)
{
    if (button == m_ui->ToolKyakuAdd)
        m_commands->actions().MenuUserListKyakuAdd->trigger();
    else if (button == m_ui->ToolKenAdd)
        m_commands->actions().MenuUserListKenAdd->trigger();
    else if (button == m_ui->ToolRogAdd)
        m_commands->actions().MenuRogListAdd->trigger();
    else if (button == m_ui->ToolYoteiAdd)
        m_commands->actions().MenuYoteiAdd->trigger();
    else if (button == m_ui->ToolHelp && !m_desk.opener.openHelp(m_desk.shared.HelpFilePath))
        m_desk.shared.messages.refuse(u"ヘルプを開けませんでした。"_s);
}

void kokyaku::addKeys()
{
    auto* const keys = new ui::PaneKeys(
        this,
        {m_ui->index->tree(), &m_ui->customers->view(), &m_ui->cases->view(), &m_ui->logs->view(),
         &m_ui->files->view(), m_ui->schedule->calendar(), &m_ui->schedule->view()});
    keys->addNumber(1, &m_ui->customers->view());
    keys->addNumber(2, &m_ui->cases->view());
    keys->addNumber(3, &m_ui->logs->view());
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QWidget::close);
    // Into the details and back; the key works in the window over this one too.
    connect(new QShortcut(Qt::CTRL | Qt::Key_I, this), &QShortcut::activated, this, [this] {
        if (isActiveWindow())
            m_windows->activateDetail();
        else
            activateWindow();
    });
    connect(new QShortcut(Qt::Key_F5, this), &QShortcut::activated, this, [this] {
        m_ui->index->reload();
        refillLists();
        if (!m_ui->logs->isShown())
            caseChosen(); // emptied after a save
    });
}

void kokyaku::showStatus()
{
    auto* const name = new QLabel(QFileInfo(m_file->connection.path()).completeBaseName(), this);
    name->setObjectName(u"StatusFile"_s);
    const bool exclusive = m_file->connection.mode() == storage::Mode::ShareExclusive;
    auto* const sharing = new QLabel(exclusive ? u"他接続不可"_s : u"共有"_s, this);
    sharing->setObjectName(u"StatusMode"_s);
    m_ui->StatusBar1->setContentsMargins(6, 0, 6, 0);
    m_ui->StatusBar1->addWidget(name, 1);
    m_ui->StatusBar1->addPermanentWidget(sharing);
}

void kokyaku::restoreDesk()
{
    resize(FirstSize);
    m_ui->splitDesk->setSizes({IndexWidth, FirstSize.width() - IndexWidth});
    m_ui->splitDesk->setStretchFactor(1, 1);
    m_ui->splitIndex->setSizes({340, 300});
    m_ui->splitIndex->setStretchFactor(0, 1);
    m_ui->splitLists->setSizes({225, 260, 125});
    ui::restoreWindow(*this, m_desk.userSettings);
    for (QSplitter* const splitter : findChildren<QSplitter*>())
        ui::restoreSplitter(*splitter, m_desk.userSettings);
    for (ui::ListView* const list : findChildren<ui::ListView*>())
        ui::restoreHeader(*list->header(), m_desk.userSettings);
    m_ui->cases->showDateColumns();
}

void kokyaku::saveDesk() const
{
    ui::saveWindow(*this, m_desk.userSettings);
    for (const QSplitter* const splitter : findChildren<QSplitter*>())
        ui::saveSplitter(*splitter, m_desk.userSettings);
    for (const ui::ListView* const list : findChildren<ui::ListView*>())
        ui::saveHeader(*list->header(), m_desk.userSettings);
}

// What the lists showed when the file was closed last, as long as 前回表示 is する.
void kokyaku::restoreView()
{
    const bool remember = m_settings.rememberView == 0;
    m_ui->SSTab1->setCurrentIndex(remember ? m_settings.firstTab : 0);
    m_ui->index->chooseNode(remember ? m_settings.customerView : 0);
    m_ui->cases->chooseNode(remember ? m_settings.caseView : 0);
}

void kokyaku::saveView()
{
    const QList<SettingValue> view = {{&Settings::firstTab, m_ui->SSTab1->currentIndex()},
                                      {&Settings::customerView, m_ui->index->chosenNode()},
                                      {&Settings::caseView, m_ui->cases->chosenNode()}};
    const bool same = std::ranges::all_of(
        view, [this](const SettingValue& each) { return m_settings.*each.setting == each.value; });
    if (m_settings.rememberView == 0 && !same)
        saveSettings(*m_file, view);
}

// The lists let go of the file before it is closed; another screen may want it at once.
void kokyaku::Form_Unload()
{
    m_windows->closeAll();
    m_ui->files->clear();
    m_ui->customers->clear();
    m_ui->cases->clear();
    m_ui->logs->clear();
    m_ui->schedule->clear();
    CloseCustomerFile(*m_file);
    m_desk.shared.CustomerDataPath.clear();
}

void kokyaku::closeEvent(QCloseEvent* event)
{
    QMainWindow::closeEvent(event);
    if (!event->isAccepted() || !m_file->connection.isOpen())
        return;
    saveDesk();
    saveView();
    Form_Unload();
    emit closed();
}

} // namespace customer
