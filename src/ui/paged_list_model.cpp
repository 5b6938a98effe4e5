#include "ui/paged_list_model.h"

#include <algorithm>
#include <limits>

namespace ui {

PagedListModel::PagedListModel(QStringList headers, QObject* parent)
    : QAbstractTableModel(parent), m_headers(std::move(headers))
{
}

PagedListModel::~PagedListModel() = default;

void PagedListModel::setSource(std::shared_ptr<core::ListSource> source)
{
    beginResetModel();
    m_source = std::move(source);
    m_toldVanished = false;
    show();
    endResetModel();
}

void PagedListModel::setPage(qint64 page)
{
    if (!m_source || page == m_source->page())
        return;
    beginResetModel();
    m_source->setPage(page);
    show();
    endResetModel();
}

void PagedListModel::show()
{
    m_blocks.clear();
    const qint64 rows = m_source ? m_source->count() : 0;
    m_rows = static_cast<int>(std::clamp<qint64>(rows, 0, std::numeric_limits<int>::max()));
}

void PagedListModel::setCheckBoxes(bool shown, bool editable)
{
    m_checkBoxes = shown;
    m_checksEditable = shown && editable;
}

void PagedListModel::setEmphasis(QHash<int, Emphasis> looks, int labelColumn)
{
    m_emphasis = std::move(looks);
    m_labelColumn = labelColumn;
}

PagedListModel::Block& PagedListModel::block(int number) const
{
    const auto found = std::find_if(m_blocks.begin(), m_blocks.end(),
                                    [number](const Block& each) { return each.number == number; });
    if (found != m_blocks.end()) {
        m_blocks.splice(m_blocks.begin(), m_blocks, found);
        return m_blocks.front();
    }
    const int first = number * BlockRows;
    const int wanted = qMin(BlockRows, m_rows - first);
    m_blocks.push_front({number, m_source->rows(first, wanted)});
    if (m_blocks.size() > BlocksKept)
        m_blocks.pop_back();
    if (m_blocks.front().rows.size() < wanted)
        tellVanished();
    return m_blocks.front();
}

// Told after the view has painted: whoever hears it sets a new source.
void PagedListModel::tellVanished() const
{
    if (m_toldVanished)
        return;
    m_toldVanished = true;
    QMetaObject::invokeMethod(const_cast<PagedListModel*>(this), &PagedListModel::rowsVanished,
                              Qt::QueuedConnection);
}

const core::ListRow* PagedListModel::findRow(int row) const
{
    if (!m_source || row < 0 || row >= m_rows)
        return nullptr;
    const Block& found = block(row / BlockRows);
    const int place = row % BlockRows;
    return place < found.rows.size() ? &found.rows.at(place) : nullptr;
}

core::ListRow PagedListModel::rowAt(int row) const
{
    const core::ListRow* const found = findRow(row);
    return found ? *found : core::ListRow{};
}

void PagedListModel::replaceRow(int row, const core::ListRow& fresh)
{
    if (!findRow(row))
        return;
    block(row / BlockRows).rows[row % BlockRows] = fresh;
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

int PagedListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int PagedListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_headers.size());
}

QVariant PagedListModel::displayText(const core::ListRow& row, int column) const
{
    QString text = oneLine(row.cells.value(column));
    const QString label = m_emphasis.value(row.emphasis).label;
    if (column == m_labelColumn && !label.isEmpty())
        text += u'（' + label + u'）';
    return text;
}

QVariant PagedListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    // Most roles that a view asks for are never answered; they shall not cost a look-up.
    const bool isCheck =
        role == Qt::CheckStateRole && m_checkBoxes && index.column() == m_checkColumn;
    if (role != Qt::DisplayRole && role != Qt::ForegroundRole && role != Qt::BackgroundRole
        && !isCheck)
        return {};
    const core::ListRow* const row = findRow(index.row());
    if (!row)
        return {};
    if (isCheck)
        return row->checked ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::DisplayRole)
        return displayText(*row, index.column());
    const auto look = m_emphasis.constFind(row->emphasis);
    if (look == m_emphasis.constEnd())
        return {};
    const QColor colour = role == Qt::ForegroundRole ? look->text : look->base;
    return colour.isValid() ? QVariant(colour) : QVariant();
}

QVariant PagedListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return m_headers.value(section);
}

Qt::ItemFlags PagedListModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (m_checksEditable && index.column() == m_checkColumn)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

bool PagedListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || !(flags(index) & Qt::ItemIsUserCheckable))
        return false;
    emit checkRequested(index.row(), value.toInt() == Qt::Checked);
    return true;
}

QString oneLine(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    for (QChar& character : text) {
        if (character == u'\n' || character == u'\r' || character == u'\t'
            || character == QChar::LineSeparator || character == QChar::ParagraphSeparator)
            character = u' ';
    }
    return text;
}

} // namespace ui
