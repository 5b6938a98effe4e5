#include "records/screens/main_shell.h"

#include "core/data/messages.h"
#include "records/screens/enlarging.h"
#include "records/screens/floating_windows.h"
#include "records/screens/form_draft.h"
#include "records/screens/list_pane.h"
#include "records/screens/status_line.h"
#include "ui/list_view.h"
#include "ui/pane_keys.h"
#include "ui/user_settings.h"
#include "ui/window_placement.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace records {
namespace {

constexpr QSize FirstSize(1360, 860);

Desk withStatus(Desk desk, QWidget* shell)
{
    desk.status = new StatusLine(shell);
    return desk;
}

} // namespace

MainShell::MainShell(const Desk& desk, QWidget* parent)
    : QMainWindow(parent), m_desk(withStatus(desk, this)), m_settings(readSettings(desk.file))
{
    resize(FirstSize.boundedTo(ui::roomFor(*this)));
}

void MainShell::assemble(const Parts& parts)
{
    m_parts = parts;
    QList<QAbstractButton*> options;
    for (ListPane* const list : parts.lists)
        options.append(&list->option());
    m_enlarging = new Enlarging(*parts.listSplitter, options, this);
    for (const ListPane* const list : parts.lists)
        connect(list, &ListPane::said, m_desk.status, &StatusLine::say);
    addKeys();
    showStatus();
}

void MainShell::addKeys()
{
    auto* const keys = new ui::PaneKeys(this, m_parts.panes);
    for (qsizetype i = 0; i < m_parts.lists.size(); ++i)
        keys->addNumber(static_cast<int>(i) + 1, &m_parts.lists.at(i)->view(),
                        m_parts.lists.at(i)->option().text());
    m_goActions = keys->actions();
    // Into the details and back; the key works in the window over this one too.
    m_goActions.append(
        shellAction(u"MenuDetail"_s, u"詳細へ・詳細から戻る(&I)"_s, Qt::CTRL | Qt::Key_I, [this] {
            if (isActiveWindow())
                m_parts.windows->activateDetail();
            else
                activateWindow();
        }));
}

void MainShell::showStatus()
{
    const storage::Connection& file = m_desk.file.connection;
    auto* const name = new QLabel(QFileInfo(file.path()).completeBaseName(), this);
    name->setObjectName(u"StatusFile"_s);
    const bool exclusive = file.mode() == storage::Mode::ShareExclusive;
    auto* const sharing = new QLabel(exclusive ? u"他接続不可"_s : u"共有"_s, this);
    sharing->setObjectName(u"StatusMode"_s);
    statusBar()->setContentsMargins(6, 0, 6, 0);
    statusBar()->addWidget(name);
    statusBar()->addWidget(m_desk.status, 1);
    addAction(m_desk.status->goOn());
    setWindowTitle(name->text() + u" - "_s + QString::fromUtf16(core::AppTitleText));
    tellKeptDrafts(m_desk);
    statusBar()->addPermanentWidget(sharing);
}

void MainShell::restoreDesk()
{
    ui::restoreWindow(*this, m_desk.userSettings);
    for (QSplitter* const splitter : findChildren<QSplitter*>())
        ui::restoreSplitter(*splitter, m_desk.userSettings);
    for (ui::ListView* const list : findChildren<ui::ListView*>())
        ui::restoreHeader(*list->header(), m_desk.userSettings);
    m_enlarging->restore(objectName() + u"/large"_s, m_desk.userSettings);
}

void MainShell::saveDesk() const
{
    ui::saveWindow(*this, m_desk.userSettings);
    for (const QSplitter* const splitter : findChildren<QSplitter*>())
        ui::saveSplitter(*splitter, m_desk.userSettings);
    for (const ui::ListView* const list : findChildren<ui::ListView*>())
        ui::saveHeader(*list->header(), m_desk.userSettings);
    m_enlarging->save(objectName() + u"/large"_s, m_desk.userSettings);
}

// Files are told apart by where they lie, whatever that holds.
QString MainShell::keptName(const QString& name) const
{
    const QByteArray place = QFileInfo(m_desk.file.connection.path()).canonicalFilePath().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(place, QCryptographicHash::Sha1).toHex();
    return objectName() + u'/' + name + u'/' + QString::fromLatin1(hash);
}

QString MainShell::keptText(const QString& name) const
{
    return QString::fromUtf8(m_desk.userSettings.value(keptName(name)));
}

void MainShell::keepText(const QString& name, const QString& text)
{
    m_desk.userSettings.setValue(keptName(name), text.toUtf8());
}

void MainShell::closeEvent(QCloseEvent* event)
{
    QMainWindow::closeEvent(event);
    if (!event->isAccepted() || !m_desk.file.connection.isOpen())
        return;
    saveDesk();
    saveView();
    Form_Unload();
    emit closed();
}

} // namespace records
