#include "core/data/messages.h"
#include "records/data/record_check.h"
#include "core/data/shared.h"
#include "customer/data/logs.h"
#include "customer/screens/kokyaku.h"
#include "customer/screens/kokyaku_commands.h"
#include "customer/screens/kokyaku_windows.h"
#include "ui/list_view.h"
#include "ui_kokyaku.h"

#include <QMenu>
#include <QToolButton>

using namespace Qt::StringLiterals;

// The menus of the customer screen: those of its lists and 表示 in the tool bar.
namespace customer {

void kokyaku::addMenus()
{
    auto* const files = new QAction(u"関連ﾌｧｲﾙを表示(&F)"_s, this);
    files->setObjectName(u"MenuKanrneHyouzi"_s);
    connect(files, &QAction::triggered, this, &kokyaku::MenuKanrneHyouzi_Click);
    m_caseOfLog = new QAction(u"件名を表示(&K)"_s, this);
    m_caseOfLog->setObjectName(u"MenuRogKenHyouzi"_s);
    m_caseOfLog->setEnabled(false);
    connect(m_caseOfLog, &QAction::triggered, this, &kokyaku::MenuRogKenHyouzi_Click);
    m_casesOfCustomer = new QAction(u"件名を表示(&H)"_s, this);
    m_casesOfCustomer->setObjectName(u"MenuKenHyouzi"_s);
    m_casesOfCustomer->setEnabled(false);
    connect(m_casesOfCustomer, &QAction::triggered, this, [this] {
        customerChosen();
        m_ui->cases->view().setFocus();
    });

    const CommandActions& commands = m_commands->actions();
    const WindowActions& windows = m_windows->actions();
    m_ui->customers->setActions(
        QList<QAction*>{commands.MenuUserListKyakuAdd, commands.MenuUserListKyakuSansyoAdd,
                        commands.MenuUserListKyakuEdit, commands.MenuUserListKenAdd,
                        m_casesOfCustomer, windows.showDetail}
        + laterScreens());
    m_ui->cases->setActions({entryFor(*commands.MenuUserListKyakuAdd, u"MenuKenListKokyakuAdd"_s),
                             commands.MenuKenListKenAdd, commands.MenuKenListKenEdit,
                             commands.MenuKenListRogAdd, files, windows.showCaseDetail,
                             displayMenu()->menuAction()});
    m_ui->logs->setActions(
        {commands.MenuRogListAdd, commands.MenuRogListEdit, m_caseOfLog, windows.showPreview});
    auto* const editEntry = new QAction(u"予定を編集(&E)"_s, this);
    connect(editEntry, &QAction::triggered, this, [this] {
        m_commands->editSchedule(core::RecordKey::fromText(m_ui->schedule->view().currentKey()));
    });
    m_ui->schedule->setActions({commands.MenuYoteiAdd, editEntry});

    auto* const display = new QToolButton(this);
    display->setObjectName(u"ToolDisplay"_s);
    display->setText(u"表示(&V)"_s);
    display->setToolTip(u"件名の表示と、詳細・プレビューの窓を選ぶ"_s);
    display->setAccessibleName(u"表示"_s);
    display->setPopupMode(QToolButton::InstantPopup);
    display->setFocusPolicy(Qt::TabFocus);
    auto* const menu = displayMenu();
    menu->addSeparator();
    menu->addActions(
        {windows.showDetail, windows.showCaseDetail, windows.showPreview, windows.ichi});
    display->setMenu(menu);
    m_ui->Toolbar1->insertWidget(m_ui->ToolHelp, display);
}

// An entry under a name of its own that does what another does.
QAction* kokyaku::entryFor(QAction& command, const QString& name)
{
    const QString key = command.shortcut().toString(QKeySequence::NativeText);
    auto* const entry = new QAction(command.text() + u'\t' + key, this);
    entry->setObjectName(name);
    entry->setEnabled(command.isEnabled());
    connect(&command, &QAction::enabledChanged, entry, &QAction::setEnabled);
    connect(entry, &QAction::triggered, &command, &QAction::trigger);
    return entry;
}

// Switched off until their screens are there.
QList<QAction*> kokyaku::laterScreens()
{
    QList<QAction*> made;
    for (const QString& caption : {u"検索(&F)..."_s, u"印刷(&P)..."_s, u"設定(&O)..."_s}) {
        auto* const action = new QAction(caption, this);
        action->setEnabled(false);
        made.append(action);
    }
    return made;
}

// What the case list shows.
QMenu* kokyaku::displayMenu()
{
    auto* const menu = new QMenu(u"件名の表示(&V)"_s, this);
    m_ui->cases->addViewsTo(*menu);
    menu->addAction(u"暦の日付の件名表示(&D)"_s, this,
                    [this] { m_ui->cases->showDay(m_ui->schedule->day()); });
    menu->addAction(u"文字を含む件名表示(&F)..."_s, this, &kokyaku::findCases);
    return menu;
}

void kokyaku::findCases()
{
    const std::optional<QString> text = m_desk.shared.messages.askText(
        u"検索する文字を入力して下さい。"_s, QString::fromUtf16(core::AppTitleText), false);
    if (text && !text->isEmpty())
        m_ui->cases->showText(*text);
}

void kokyaku::MenuKanrneHyouzi_Click()
{
    if (m_ui->cases->currentKey().isNone()) {
        m_desk.shared.messages.refuse(u"件名が選択されていません。"_s);
        return;
    }
    m_ui->SSTab1->setCurrentWidget(m_ui->pageFiles);
    m_ui->files->view().setFocus();
}

void kokyaku::MenuRogKenHyouzi_Click()
{
    const std::optional<KeptLog> log =
        records::readOrTell(*m_file, [this] { return readLog(*m_file, m_ui->logs->currentKey()); });
    if (!log)
        return;
    m_ui->cases->showCase({0, log->key.mark, log->caseId, {}});
    m_ui->cases->view().setFocus();
}

} // namespace customer
