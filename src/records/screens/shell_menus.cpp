#include "core/data/messages.h"
#include "core/data/opener.h"
#include "core/data/shared.h"
#include "records/screens/key_list.h"
#include "records/screens/main_shell.h"
#include "records/screens/status_line.h"
#include "ui/icons.h"
#include "ui/list_view.h"
#include "ui/user_settings.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

using namespace Qt::StringLiterals;

// The menu bar of a main screen.
namespace records {
namespace {

ui::ListView* listWithFocus()
{
    return qobject_cast<ui::ListView*>(QApplication::focusWidget());
}

} // namespace

QAction* MainShell::shellAction(const QString& name, const QString& caption,
                                const QKeySequence& key, const std::function<void()>& run)
{
    auto* const action = new QAction(caption, this);
    action->setObjectName(name);
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, [run] { run(); });
    addAction(action);
    return action;
}

void MainShell::addMenuBar(QToolBar& bar, const Menus& menus)
{
    const auto menu = [this](const QString& caption, const QList<QAction*>& own) -> QMenu& {
        QMenu* const made = menuBar()->addMenu(caption);
        made->addActions(own);
        made->addSeparator();
        return *made;
    };
    menu(u"データ(&D)"_s, menus.data)
        .addAction(shellAction(u"MenuClose"_s, u"閉じてメニューへ(&X)"_s, QKeySequence::Close,
                               [this] { close(); }));

    // Keys that a list takes itself stand in the caption only.
    QMenu& edit = menu(u"編集(&E)"_s, menus.edit);
    QAction* const remove = edit.addAction(u"削除(&D)\tDel"_s, this, [] {
        if (ui::ListView* const list = listWithFocus())
            emit list->deletionAsked();
    });
    QAction* const copy = edit.addAction(u"コピー(&C)\tCtrl+C"_s, this, [] {
        if (ui::ListView* const list = listWithFocus())
            list->copySelection();
    });
    connect(&edit, &QMenu::aboutToShow, this, [remove, copy] {
        const ui::ListView* const list = listWithFocus();
        remove->setEnabled(list && list->selectedRows() == 1);
        copy->setEnabled(list && list->selectedRows() > 0);
    });

    QMenu& view = menu(u"表示(&V)"_s, menus.view);
    view.addAction(toolBarWords(bar));
    view.addAction(shellAction(u"MenuRefresh"_s, u"最新の情報に更新(&R)"_s, Qt::Key_F5,
                               [this] { refreshAll(); }));

    QMenu& go = menu(u"移動(&G)"_s, menus.go);
    go.addActions(m_goActions);
    for (const auto& [caption, pages] : {std::pair(u"前のページ(&B)\tCtrl+PageUp"_s, -1),
                                         std::pair(u"次のページ(&F)\tCtrl+PageDown"_s, 1)})
        go.addAction(caption, this, [pages = pages] {
            if (ui::ListView* const list = listWithFocus())
                emit list->pageWanted(pages, ui::ListView::SameRow);
        });
    go.addAction(m_desk.status->goOn());

    addHelp(bar, menu(u"ヘルプ(&H)"_s, {menus.help}), menus.help);
}

void MainShell::addHelp(QToolBar& bar, QMenu& menu, QAction* help)
{
    help->setIcon(ui::icon(u"help"_s));
    bar.widgetForAction(help)->setFocusPolicy(Qt::TabFocus);
    connect(help, &QAction::triggered, this, [this] {
        if (!m_desk.opener.openHelp(m_desk.shared.HelpFilePath))
            m_desk.shared.messages.refuse(u"ヘルプを開けませんでした。"_s);
    });
    menu.addAction(u"キー一覧(&K)"_s, this, [this] { showKeyList(this, menuBar()->actions()); })
        ->setObjectName(u"MenuKeys"_s);
}

// Words under the icons, as long as the user does not switch them off.
QAction* MainShell::toolBarWords(QToolBar& bar)
{
    const QString kept = objectName() + u"/words"_s;
    auto* const words = new QAction(u"ツールバーの文字(&T)"_s, this);
    words->setObjectName(u"MenuWords"_s);
    words->setCheckable(true);
    words->setChecked(m_desk.userSettings.value(kept) != "0");
    m_words = words;
    m_bar = &bar;
    showWords();
    connect(words, &QAction::toggled, this, [this, kept](bool shown) {
        showWords();
        m_desk.userSettings.setValue(kept, shown ? "1" : "0");
    });
    return words;
}

// A low window gives their room to the lists.
void MainShell::showWords()
{
    constexpr int Low = 560; // pixels
    if (m_bar)
        m_bar->setToolButtonStyle(m_words->isChecked() && height() >= Low
                                      ? Qt::ToolButtonTextUnderIcon
                                      : Qt::ToolButtonIconOnly);
}

void MainShell::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    showWords();
}

} // namespace records
