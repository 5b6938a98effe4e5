#pragma once

#include "core/data/list_source.h"
#include "core/data/record_key.h"
#include "records/data/list_description.h"
#include "storage/recordset.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace records {

// The rows of a list, one page at a time. It holds nothing open and reads exactly the rows that are
// asked for. A statement that the engine refuses gives an empty list; the user is told once, as of
// rows that cannot be read: each of these stands in the list as a row without a record.
class RecordList : public core::ListSource {
public:
    // What a row is to be emphasised as; may be empty.
    using Emphasis = std::function<int(const storage::Recordset& row, int rowOnPage)>;

    // `list` outlives it; of it the fields are used. `pageSize` 0 or less: one page with all rows.
    RecordList(Database& data, const ListDescription& list, const QString& statement, int pageSize,
               Emphasis emphasis = {});

    // False when the statement was refused.
    bool isReadable() const { return m_readable; }
    // Counted when it is first asked for.
    qint64 total() override;
    qint64 pageCount() override;
    qint64 pageSize() const override { return m_pageSize; }
    qint64 page() const override { return m_page; }
    void setPage(qint64 page) override;
    qint64 count() override;
    QList<core::ListRow> rows(qint64 offset, int count) override;
    // At which position, from 1 over all pages, the record stands; 0 when it is not in the list, -1
    // when that cannot be read.
    qint64 positionOf(const core::RecordKey& key) override;
    // As beginningWith() in list_description.h has it.
    qint64 positionOfText(const QString& text) override;

    // Gives the statements that find a text, for positionOfText().
    using Beginning = std::function<QStringList(const QString& text)>;
    void setBeginning(Beginning beginning) { m_beginning = std::move(beginning); }

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
    core::ListRow unreadableRow() const;
    core::ListRow currentRow() const;

    Database& m_data;
    const ListDescription& m_list;
    Emphasis m_emphasis;
    Beginning m_beginning;
    Indices m_at;
    storage::Recordset m_rows;
    std::optional<qint64> m_total;
    std::optional<qint64> m_pageRows;
    qint64 m_pageSize;
    qint64 m_page = 1;
    bool m_readable = false;
    bool m_toldUnreadable = false;
};

// The rows of a filter, in pages as the settings say. `clicked` is the order of a clicked header;
// without it the filter's own order stands, or else that of the settings.
std::unique_ptr<RecordList> openList(Database& data, const ListDescription& list,
                                     const ListFilter& filter,
                                     const std::optional<ListOrder>& clicked,
                                     const Settings& settings);
// The same on one page.
std::unique_ptr<RecordList> openWholeList(Database& data, const ListDescription& list,
                                          const ListFilter& filter, const Settings& settings);
// Rows of the list's table in all; 0 when they cannot be counted.
qint64 countRows(Database& data, const ListDescription& list);

} // namespace records
