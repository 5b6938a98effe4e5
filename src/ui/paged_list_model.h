#pragma once

#include "core/data/list_source.h"

#include <QAbstractTableModel>
#include <QColor>

#include <list>
#include <memory>

namespace ui {

// How the rows with one emphasis number look. The label says in words what the colour says.
struct Emphasis {
    QColor text;
    QColor base; // invalid: the list's own
    QString label;
};

// The page that a list source shows as a table. Rows are fetched in blocks when they are asked for
// and only the blocks used last are kept, so that a list of any length costs the same memory.
class PagedListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    static constexpr int BlockRows = 256;
    static constexpr std::size_t BlocksKept = 16;

    explicit PagedListModel(QStringList headers, QObject* parent = nullptr);
    ~PagedListModel() override;

    // Shows the rows of a source on its present page; nullptr empties the list.
    void setSource(std::shared_ptr<core::ListSource> source);
    core::ListSource* source() const { return m_source.get(); }
    // Turns the source to a page (from 1) and shows it.
    void setPage(qint64 page);

    // One column shows each row's check box; `editable`: the user may ask to change it.
    void setCheckBoxes(bool shown, bool editable);
    // The first column does, as long as no other is said to.
    void setCheckColumn(int column) { m_checkColumn = column; }
    int checkColumn() const { return m_checkColumn; }
    // Looks by emphasis number, and the column whose text the label is added to.
    void setEmphasis(QHash<int, Emphasis> looks, int labelColumn);

    // A row of this page as the source gave it; an empty one when it could not be read.
    core::ListRow rowAt(int row) const;
    // Shows a row anew after its record was changed (its key with it).
    void replaceRow(int row, const core::ListRow& fresh);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // Changes nothing itself: a check box that is clicked or toggled by key asks.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

signals:
    // The user asks for the check of a row to be set or cleared.
    void checkRequested(int row, bool checked);
    // The same for several rows at once.
    void checksRequested(const QList<int>& rows, bool checked);
    // Rows that were counted can no longer be read: another copy of the program has deleted some,
    // or reading fails. Given once for each source.
    void rowsVanished();

private:
    struct Block {
        int number;
        QList<core::ListRow> rows;
    };

    void show();
    const core::ListRow* findRow(int row) const;
    Block& block(int number) const;
    void tellVanished() const;
    QVariant displayText(const core::ListRow& row, int column) const;

    QStringList m_headers;
    std::shared_ptr<core::ListSource> m_source;
    mutable std::list<Block> m_blocks; // the one used last in front
    QHash<int, Emphasis> m_emphasis;
    int m_labelColumn = 0;
    int m_rows = 0;
    int m_checkColumn = 0;
    bool m_checkBoxes = false;
    bool m_checksEditable = false;
    mutable bool m_toldVanished = false;
};

// A cell's text as a list shows and copies it: line ends and tabs as one blank each.
QString oneLine(QString text);

} // namespace ui
