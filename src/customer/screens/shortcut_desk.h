#pragma once

#include "core/data/record_key.h"
#include "customer/data/shortcuts.h"
#include "customer/screens/desk.h"
#include "ui/paged_list_model.h"

#include <QObject>
#include <QStringList>

class QMenu;
class QPushButton;

namespace ui {
class ListView;
}

namespace customer {

// The file shortcuts of one customer or case in a list of a screen: add by dialog or by dropping
// files, open, delete. Only shortcuts are deleted, never files.
class ShortcutDesk : public QObject {
    Q_OBJECT

public:
    // The widgets live as long as this. `noOwner` is told when something is to be added while no
    // owner is shown.
    ShortcutDesk(const Desk& desk, ShortcutOwner kind, ui::ListView& list, QPushButton& add,
                 QPushButton& remove, QString noOwner);

    // Shows the shortcuts of an owner; none: the list is empty.
    void showOwner(const core::RecordKey& owner);
    void refill();

signals:
    // Shortcuts were added or deleted.
    void written();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addByDialog();
    void add(const QStringList& paths);
    void removeCurrent();
    void open(int row);
    void showMenu(const QPoint& screenPoint);
    core::RecordKey currentKey() const;

    const Desk& m_desk;
    ShortcutOwner m_kind;
    ui::ListView& m_list;
    QPushButton& m_add;
    QPushButton& m_remove;
    QString m_noOwner;
    ui::PagedListModel m_model;
    core::RecordKey m_owner;
};

} // namespace customer
