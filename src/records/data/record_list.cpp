#include "records/data/record_list.h"

#include "core/data/clock.h"
#include "core/data/failure.h"
#include "records/data/row_changes.h"

#include <algorithm>

namespace records {

namespace {

// Rows that a list without pages reads at a time.
constexpr int BlockSize = 256;
const QString UnreadableText = QStringLiteral("（読めない行）");

} // namespace

RecordList::RecordList(Database& data, const ListDescription& list, const QString& statement,
                       int pageSize, Emphasis emphasis)
    : m_data(data), m_list(list), m_emphasis(std::move(emphasis)), m_pageSize(std::max(pageSize, 0))
{
    m_rows.setPageSize(m_pageSize > 0 ? pageSize : BlockSize);
    m_readable = m_rows.open(statement, data.connection);
    if (!m_readable) {
        core::tellFailure(data.messages, core::ReadFailedText, data.connection);
        m_total = 0;
        return;
    }
    if (m_rows.eof() && !m_rows.isUnreadable())
        m_total = 0; // a search that found nothing need not be run again to be counted
    findIndices();
}

void RecordList::findIndices()
{
    m_at.updateId = m_rows.fieldIndex(m_list.updateId);
    m_at.mark = m_rows.fieldIndex(m_list.mark);
    m_at.id = m_rows.fieldIndex(m_list.id);
    m_at.stamp = m_rows.fieldIndex(m_list.stamp);
    m_at.check = m_list.check.isEmpty() ? -1 : m_rows.fieldIndex(m_list.check);
    for (const ListColumn& column : m_list.columns)
        m_at.cells.push_back(m_rows.fieldIndex(column.field));
}

qint64 RecordList::total()
{
    if (!m_total) {
        const qint64 counted = m_rows.recordCount();
        if (counted < 0)
            tellUnreadable();
        // What was shown so far stays to be seen.
        m_total = counted < 0 ? (m_page - 1) * m_pageSize + m_pageRows.value_or(0) : counted;
    }
    return *m_total;
}

qint64 RecordList::pageCount()
{
    if (m_pageSize == 0)
        return 1;
    return std::max<qint64>((total() + m_pageSize - 1) / m_pageSize, 1);
}

void RecordList::setPage(qint64 page)
{
    m_page = page <= 1 ? 1 : std::min(page, pageCount());
    m_pageRows.reset();
}

qint64 RecordList::count()
{
    if (m_pageSize == 0)
        return total();
    if (!m_pageRows) {
        m_pageRows = m_total
            ? std::clamp<qint64>(*m_total - (m_page - 1) * m_pageSize, 0, m_pageSize)
            : countPage();
    }
    return *m_pageRows;
}

// Counts the rows of the page as they are read for it anyway, so that a page can be shown before
// all rows are counted.
qint64 RecordList::countPage()
{
    const qint64 before = (m_page - 1) * m_pageSize;
    qint64 rows = 0;
    m_rows.setCacheSize(static_cast<int>(m_pageSize));
    while (m_readable && rows < m_pageSize && standOn(before + rows + 1))
        ++rows;
    if (rows > 0 && rows < m_pageSize)
        m_total = before + rows;
    return rows;
}

// Whether the list has such a row, one that is gone since or cannot be read among them.
bool RecordList::standOn(qint64 position)
{
    const qsizetype failures = m_data.connection.errors().size();
    if (m_rows.setAbsolutePosition(position))
        return true;
    const bool failed = m_rows.isUnreadable() || m_data.connection.errors().size() > failures;
    if (failed)
        tellUnreadable();
    return m_rows.isUnreadable();
}

// Once for each list.
void RecordList::tellUnreadable()
{
    if (!std::exchange(m_toldUnreadable, true))
        core::tellFailure(m_data.messages, core::ReadFailedText, m_data.connection);
}

QList<core::ListRow> RecordList::rows(qint64 offset, int count)
{
    QList<core::ListRow> found;
    const qint64 before = (m_page - 1) * m_pageSize;
    const qint64 wanted = m_pageSize > 0 ? std::min<qint64>(count, m_pageSize - offset) : count;
    if (!m_readable || wanted <= 0 || offset < 0)
        return found;
    m_rows.setCacheSize(static_cast<int>(wanted));
    found.reserve(wanted);
    qint64 position = before + offset + 1;
    const qint64 behind = position + wanted;
    while (position < behind && standOn(position)) {
        if (m_rows.isUnreadable()) {
            found.append(unreadableRow());
            ++position;
            continue;
        }
        // Rows that are gone were passed over.
        if (m_rows.absolutePosition() < behind)
            found.append(currentRow());
        position = m_rows.absolutePosition() + 1;
    }
    return found;
}

qint64 RecordList::positionOf(const core::RecordKey& key)
{
    return m_readable ? m_rows.positionOf(m_list.updateId, storage::Value(key.updateId)) : 0;
}

qint64 RecordList::positionOfText(const QString& text)
{
    const QStringList statements =
        m_beginning && !text.isEmpty() ? m_beginning(text) : QStringList();
    for (const QString& statement : statements) {
        storage::Recordset found;
        found.setPageSize(1);
        if (!found.open(statement, m_data.connection) || found.eof())
            continue;
        const qint64 position = positionOf({found.value(m_list.updateId).toInteger(), 0, 0, {}});
        if (position > 0)
            return position;
    }
    return 0;
}

core::ListRow RecordList::unreadableRow() const
{
    core::ListRow row;
    row.key = core::RecordKey().toText();
    row.cells.append(UnreadableText);
    return row;
}

core::ListRow RecordList::currentRow() const
{
    const core::RecordKey key{m_rows.value(m_at.updateId).toInteger(),
                              m_rows.value(m_at.mark).toInteger(),
                              m_rows.value(m_at.id).toInteger(), m_rows.value(m_at.stamp).toText()};
    core::ListRow row;
    row.key = key.toText();
    row.cells.reserve(static_cast<qsizetype>(m_at.cells.size()));
    for (const int cell : m_at.cells)
        row.cells.append(m_rows.value(cell).toText());
    row.checked = m_at.check >= 0 && m_rows.value(m_at.check).toInteger() == 1;
    if (m_emphasis) {
        const qint64 before = (m_page - 1) * m_pageSize;
        row.emphasis = m_emphasis(m_rows, static_cast<int>(m_rows.absolutePosition() - before) - 1);
    }
    return row;
}

std::unique_ptr<RecordList> openList(Database& data, const ListDescription& list,
                                     const ListFilter& filter,
                                     const std::optional<ListOrder>& clicked,
                                     const Settings& settings)
{
    RecordList::Emphasis emphasis;
    if (list.emphasis) {
        // Kept as they are now, for as long as the list is shown.
        emphasis = [&list, settings, today = data.clock.today()](const storage::Recordset& row,
                                                                 int rowOnPage) {
            return list.emphasis(row, rowOnPage, settings, today);
        };
    }
    auto rows =
        std::make_unique<RecordList>(data, list, listStatement(list, filter, clicked, settings),
                                     settings[list.pageRows], std::move(emphasis));
    rows->setBeginning([&list, filter, clicked, settings](const QString& text) {
        return beginningWith(list, filter, clicked, settings, text);
    });
    return rows;
}

std::unique_ptr<RecordList> openWholeList(Database& data, const ListDescription& list,
                                          const ListFilter& filter, const Settings& settings)
{
    return std::make_unique<RecordList>(data, list, listStatement(list, filter, {}, settings), 0);
}

qint64 countRows(Database& data, const ListDescription& list)
{
    return readNumber(data, list.countQuery, list.countField).value_or(0);
}

} // namespace records
