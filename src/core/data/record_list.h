#pragma once

#include "core/data/data_file.h"
#include "core/data/list_source.h"
#include "core/data/record_key.h"
#include "storage/recordset.h"

#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace core {

// Which fields of a statement's rows make a list's keys, cells and check box.
struct ListColumns {
    QString updateId;
    QString mark;
    QString id;
    QString stamp;
    QStringList cells;
    QString check; // checked when 1; empty: the list has no check boxes
    // What a row is to be emphasised as; may be empty.
    std::function<int(const storage::Recordset& row)> emphasis = {};
};

// The rows of a statement, one page at a time. It holds nothing open and reads exactly the rows
// that are asked for. A statement that the engine refuses gives an empty list; the user is told
// once, as of rows that cannot be read: each of these stands in the list as a row without a record.
class RecordList : public ListSource {
public:
    // `pageSize` 0 or less: one page with all rows.
    RecordList(DataFile& file, const QString& statement, ListColumns columns, int pageSize);

    // False when the statement was refused.
    bool isReadable() const { return m_readable; }
    // Counted when it is first asked for.
    qint64 total() override;
    qint64 pageCount() override;
    qint64 page() const override { return m_page; }
    void setPage(qint64 page) override;
    qint64 count() override;
    QList<ListRow> rows(qint64 offset, int count) override;
    // At which position, from 1 over all pages, the record stands; 0 when it is not in the list, -1
    // when that cannot be read.
    qint64 positionOf(const RecordKey& key);

private:
    struct Indices {
        int updateId = -1;
        int mark = -1;
        int id = -1;
        int stamp = -1;
        int check = -1;
        std::vector<int> cells;
    };
    void findIndices();
    qint64 countPage();
    bool standOn(qint64 position);
    void tellUnreadable();
    ListRow unreadableRow() const;
    ListRow currentRow() const;

    DataFile& m_file;
    ListColumns m_columns;
    Indices m_at;
    storage::Recordset m_rows;
    std::optional<qint64> m_total;
    std::optional<qint64> m_pageRows;
    qint64 m_pageSize;
    qint64 m_page = 1;
    bool m_readable = false;
    bool m_toldUnreadable = false;
};

} // namespace core
