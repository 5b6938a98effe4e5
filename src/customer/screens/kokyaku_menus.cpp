#include "core/data/messages.h"
#include "core/data/shared.h"
#include "customer/data/logs.h"
#include "customer/screens/case_view.h"
#include "customer/screens/kokyaku.h"
#include "customer/screens/kokyaku_commands.h"
#include "customer/screens/lists.h"
#include "records/screens/floating_windows.h"
#include "ui/list_view.h"
#include "ui_kokyaku.h"

#include <QMenu>
#include <QToolButton>

using namespace Qt::StringLiterals;

// The menus of the customer screen: those of its lists and 表示 in the tool bar.
namespace customer {

void kokyaku::addMenus()
{
    m_commands->add({
        {u"MenuKanrneHyouzi"_s, u"関連ﾌｧｲﾙを表示(&F)"_s, [this] { MenuKanrneHyouzi_Click(); }},
        {u"MenuRogKenHyouzi"_s, u"件名を表示(&K)"_s, [this] { MenuRogKenHyouzi_Click(); },
         [](const auto& selected) { return selected.has(Lists::Logs); }},
        {u"MenuKenHyouzi"_s, u"件名を表示(&H)"_s,
         [this] {
             showCasesOfCustomer();
             m_ui->cases->view().setFocus();
         },
         [](const auto& selected) { return selected.has(Lists::Customers); }},
    });
    const auto actions = [this](const QStringList& names) {
        QList<QAction*> found;
        for (const QString& name : names)
            found.append(m_commands->action(name));
        return found;
    };
    const QList<QAction*>& windows = m_windows->modeActions(); // customer, case, preview
    const QList<QAction*> later = laterScreens();
    m_ui->customers->setActions(actions({u"MenuUserListKyakuAdd"_s, u"MenuUserListKyakuSansyoAdd"_s,
                                         u"MenuUserListKyakuEdit"_s, u"MenuUserListKyakuDelete"_s,
                                         u"MenuUserListKenAdd"_s, u"MenuKenHyouzi"_s})
                                + QList<QAction*>{windows.at(0)} + later);
    m_ui->cases->setActions(
        QList<QAction*>{m_commands->entryFor(u"MenuUserListKyakuAdd"_s, u"MenuKenListKokyakuAdd"_s)}
        + actions({u"MenuKenListKenAdd"_s, u"MenuKenListKenEdit"_s, u"MenuKenListRogAdd"_s,
                   u"MenuKenListKenDelete"_s, u"MenuKanrneHyouzi"_s})
        + QList<QAction*>{windows.at(1), displayMenu()->menuAction()});
    m_ui->logs->setActions(actions({u"MenuRogListAdd"_s, u"MenuRogListEdit"_s,
                                    u"MenuRogListDelete"_s, u"MenuRogKenHyouzi"_s})
                           + QList<QAction*>{windows.at(2)});
    m_ui->schedule->setActions(
        actions({u"MenuYoteiAdd"_s, u"MenuYoteiEdit"_s, u"MenuYoteiDelete"_s}));

    addMenuBar(*m_ui->Toolbar1,
               {actions({u"MenuUserListKyakuAdd"_s, u"MenuUserListKyakuSansyoAdd"_s,
                         u"MenuUserListKenAdd"_s, u"MenuRogListAdd"_s, u"MenuYoteiAdd"_s})
                    + later,
                actions({u"MenuUserListKyakuEdit"_s, u"MenuKenListKenEdit"_s, u"MenuRogListEdit"_s,
                         u"MenuYoteiEdit"_s}),
                QList<QAction*>{displayMenu()->menuAction()} + windows
                    + QList<QAction*>{m_windows->ichi()},
                actions({u"MenuKenHyouzi"_s, u"MenuKanrneHyouzi"_s, u"MenuRogKenHyouzi"_s}),
                m_ui->ToolHelp});

    auto* const display = new QToolButton(this);
    display->setObjectName(u"ToolDisplay"_s);
    display->setText(u"表示"_s);
    display->setToolTip(u"件名の表示と、詳細・プレビューの窓を選ぶ"_s);
    display->setAccessibleName(u"表示"_s);
    display->setPopupMode(QToolButton::InstantPopup);
    display->setFocusPolicy(Qt::TabFocus);
    auto* const menu = displayMenu();
    menu->addSeparator();
    menu->addActions(windows);
    menu->addAction(m_windows->ichi());
    display->setMenu(menu);
    m_ui->Toolbar1->insertWidget(m_ui->ToolHelp, display);
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
    m_cases->addViewsTo(*menu);
    menu->addAction(u"暦の日付の件名表示(&D)"_s, this,
                    [this] { m_cases->showDay(selection().day()); });
    menu->addAction(u"文字を含む件名表示(&F)..."_s, this, &kokyaku::findCases);
    return menu;
}

void kokyaku::findCases()
{
    const std::optional<QString> text = desk().shared.messages.askText(
        u"検索する文字を入力して下さい。"_s, QString::fromUtf16(core::AppTitleText), false);
    if (text && !text->isEmpty())
        m_cases->showText(*text);
}

void kokyaku::MenuKanrneHyouzi_Click()
{
    if (!selection().has(Lists::Cases)) {
        desk().shared.messages.refuse(u"件名が選択されていません。"_s);
        return;
    }
    m_ui->SSTab1->setCurrentWidget(m_ui->pageFiles);
    m_ui->files->view().setFocus();
}

void kokyaku::MenuRogKenHyouzi_Click()
{
    const std::optional<records::Record> log =
        records::readOrTell(desk().file, logTable(), selection().key(Lists::Logs));
    if (!log)
        return;
    m_cases->showCase({0, log->key.mark, log->number(u"件名ID"), {}});
    m_ui->cases->view().setFocus();
}

} // namespace customer
