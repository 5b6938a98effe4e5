#include "records/screens/related_files_list.h"

#include "core/data/messages.h"
#include "core/data/opener.h"
#include "records/data/record_check.h"
#include "records/screens/desk.h"
#include "ui/file_chooser.h"
#include "ui/list_view.h"

#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace records {
namespace {

const QString FileFilter = u"All(*.*)|*.*"_s;

QStringList droppedFiles(const QMimeData& data)
{
    QStringList paths;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    return paths;
}

} // namespace

RelatedFilesList::RelatedFilesList(const Desk& desk, const RelatedFiles& kind, ui::ListView& list,
                                   QPushButton& add, QPushButton& remove, QString noOwner)
    : QObject(&list),
      m_desk(desk),
      m_kind(kind),
      m_list(list),
      m_add(add),
      m_remove(remove),
      m_noOwner(std::move(noOwner)),
      m_model({u"ﾌｧｲﾙ名"_s, u"場所"_s})
{
    m_list.setListModel(&m_model);
    m_list.viewport()->setAcceptDrops(true);
    m_list.viewport()->installEventFilter(this);
    connect(&m_list, &ui::ListView::opened, this, &RelatedFilesList::open);
    connect(&m_list, &ui::ListView::menuRequested, this, &RelatedFilesList::showMenu);
    connect(&m_list, &ui::ListView::currentRowChanged, this,
            [this](int row) { m_remove.setEnabled(row >= 0); });
    connect(&m_add, &QPushButton::clicked, this, &RelatedFilesList::addByDialog);
    connect(&m_remove, &QPushButton::clicked, this, &RelatedFilesList::removeCurrent);
    m_remove.setEnabled(false);
}

void RelatedFilesList::showOwner(const core::RecordKey& owner)
{
    m_owner = owner;
    m_remove.setEnabled(false);
    m_list.setHint(owner.isNone() ? m_noOwner : u"ここへファイルをドラッグすると登録されます。"_s);
    if (owner.isNone())
        m_list.fill(nullptr);
    else
        m_list.fill(openShortcuts(m_desk.file, m_kind, owner));
}

void RelatedFilesList::refill()
{
    if (!m_owner.isNone())
        m_list.refill(openShortcuts(m_desk.file, m_kind, m_owner));
    m_remove.setEnabled(!currentKey().isNone());
}

core::RecordKey RelatedFilesList::currentKey() const
{
    return core::RecordKey::fromText(m_list.currentKey());
}

void RelatedFilesList::addByDialog()
{
    if (m_owner.isNone()) {
        m_desk.file.messages.refuse(m_noOwner);
        return;
    }
    const QString path = m_desk.files.chooseFile(m_list.window(), u"関連ﾌｧｲﾙを追加"_s, FileFilter);
    if (!path.isEmpty())
        add({path});
}

void RelatedFilesList::add(const QStringList& paths)
{
    if (m_owner.isNone()) {
        m_desk.file.messages.refuse(m_noOwner);
        return;
    }
    for (const QString& path : paths) {
        if (addShortcut(m_desk.file, m_kind, m_owner, path) != SaveResult::Saved)
            break; // the user was told; the rest would fail alike
    }
    refill();
}

void RelatedFilesList::removeCurrent()
{
    const core::RecordKey key = currentKey();
    if (key.isNone())
        return;
    if (deleteShortcut(m_desk.file, m_kind, key) != DeleteResult::Kept) {
        refill();
    }
}

void RelatedFilesList::open(int row)
{
    const auto key = core::RecordKey::fromText(m_model.rowAt(row).key);
    const std::optional<QString> path =
        readOrTell(m_desk.file, [&] { return shortcutPath(m_desk.file, m_kind, key); });
    if (!path) {
        refill();
        return;
    }
    core::openFileOrTell(m_desk.opener, m_desk.file.messages, *path);
}

void RelatedFilesList::showMenu(const QPoint& screenPoint)
{
    QMenu menu;
    const bool chosen = !currentKey().isNone();
    menu.addAction(u"開く(&O)"_s, this, [this] { open(m_list.currentIndex().row()); })
        ->setEnabled(chosen);
    menu.addAction(u"追加(&A)"_s, this, &RelatedFilesList::addByDialog);
    menu.addAction(u"削除(&D)"_s, this, &RelatedFilesList::removeCurrent)->setEnabled(chosen);
    menu.exec(screenPoint);
}

bool RelatedFilesList::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove) {
        auto* const drag = static_cast<QDragMoveEvent*>(event);
        if (!droppedFiles(*drag->mimeData()).isEmpty())
            drag->acceptProposedAction();
        return true;
    }
    if (event->type() == QEvent::Drop) {
        auto* const drop = static_cast<QDropEvent*>(event);
        drop->acceptProposedAction();
        // The message boxes come after the program that is dragged from has let go.
        QMetaObject::invokeMethod(
            this, [this, paths = droppedFiles(*drop->mimeData())] { add(paths); },
            Qt::QueuedConnection);
        return true;
    }
    return false;
}

} // namespace records
