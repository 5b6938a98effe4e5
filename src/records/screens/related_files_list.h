#pragma once

#include "core/data/record_key.h"
#include "records/data/related_files.h"
#include "ui/paged_list_model.h"

#include <QObject>
#include <QStringList>

class QMenu;
class QPushButton;

namespace ui {
class ListView;
}

namespace records {

struct Desk;

// The file shortcuts of one record in a list of a screen: add by dialog or by dropping
// files, open, delete. Only shortcuts are deleted, never files.
class RelatedFilesList : public QObject {
    Q_OBJECT

public:
    // The widgets live as long as this. `noOwner` is told when something is to be added while no
    // owner is shown.
    RelatedFilesList(const Desk& desk, const RelatedFiles& kind, ui::ListView& list,
                     QPushButton& add, QPushButton& remove, QString noOwner);

    // Shows the shortcuts of an owner; none: the list is empty.
    void showOwner(const core::RecordKey& owner);
    void refill();

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
    const RelatedFiles& m_kind;
    ui::ListView& m_list;
    QPushButton& m_add;
    QPushButton& m_remove;
    QString m_noOwner;
    ui::PagedListModel m_model;
    core::RecordKey m_owner;
};

} // namespace records
