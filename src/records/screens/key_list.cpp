#include "records/screens/key_list.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QMenu>
#include <QRegularExpression>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace records {
namespace {

using KeyRows = QList<std::pair<QString, QString>>;

const KeyRows& listKeys()
{
    static const KeyRows keys{
        {u"選択した行を編集する"_s, u"Enter"_s},
        {u"選択した行の印を付ける・外す"_s, u"Space"_s},
        {u"選択した行を削除する"_s, u"Del"_s},
        {u"選択した行をコピーする"_s, u"Ctrl+C"_s},
        {u"行のメニューを開く"_s, u"Shift+F10"_s},
        {u"暦の今日へ移動する"_s, u"Ctrl+T"_s},
        {u"前のページ・次のページ"_s, u"Ctrl+PageUp・Ctrl+PageDown"_s},
        {u"並べ替えた列がその文字で始まる行へ移動する"_s, u"文字キー"_s},
    };
    return keys;
}

const KeyRows& formKeys()
{
    static const KeyRows keys{
        {u"次の欄へ進む"_s, u"Enter・Tab"_s},     {u"日付の暦を開く"_s, u"F4"_s},
        {u"保存する"_s, u"Ctrl+S・Ctrl+Enter"_s}, {u"閉じる（入力は残ります）"_s, u"Esc"_s},
        {u"この画面の使い方を見る"_s, u"F1"_s},
    };
    return keys;
}

void addRows(QTreeWidget& list, const QString& heading, const KeyRows& rows)
{
    if (rows.isEmpty())
        return;
    auto* const group = new QTreeWidgetItem(&list, {heading});
    group->setExpanded(true);
    for (const auto& [what, key] : rows)
        new QTreeWidgetItem(group, {what, key});
}

void collect(const QList<QAction*>& entries, KeyRows& rows)
{
    for (const QAction* const entry : entries) {
        if (const auto* const menu = entry->menu<QMenu*>())
            collect(menu->actions(), rows);
        else if (!entry->shortcut().isEmpty())
            rows.append({plainCaption(entry->text()),
                         entry->shortcut().toString(QKeySequence::NativeText)});
    }
}

} // namespace

QString plainCaption(const QString& caption)
{
    static const QRegularExpression mnemonic(u"\\(&.\\)|&"_s);
    QString plain = caption.section(u'\t', 0, 0);
    return plain.remove(mnemonic);
}

void showKeyList(QWidget* over, const QList<QAction*>& menus)
{
    auto* const window = new QDialog(over);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setObjectName(u"keylist"_s);
    window->setWindowTitle(u"キー一覧"_s);
    auto* const list = new QTreeWidget(window);
    list->setObjectName(u"KeyList"_s);
    list->setAccessibleName(u"キー一覧"_s);
    list->setHeaderLabels({u"すること"_s, u"キー"_s});
    list->setRootIsDecorated(false);
    for (QAction* const menu : menus) {
        KeyRows rows;
        collect({menu}, rows);
        addRows(*list, plainCaption(menu->text()), rows);
    }
    addRows(*list, u"リスト"_s, listKeys());
    addRows(*list, u"編集画面"_s, formKeys());
    list->expandAll();
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    list->setCurrentItem(list->topLevelItem(0));
    auto* const buttons = new QDialogButtonBox(window);
    buttons->addButton(u"閉じる"_s, QDialogButtonBox::RejectRole);
    QObject::connect(buttons, &QDialogButtonBox::rejected, window, &QDialog::reject);
    auto* const rows = new QVBoxLayout(window);
    rows->addWidget(list);
    rows->addWidget(buttons);
    window->resize(560, 420);
    window->open();
    list->setFocus();
}

} // namespace records
