#include "ui/list_view.h"

#include "ui/find_again.h"
#include "ui/list_copy.h"
#include "ui/paged_list_model.h"
#include "ui/selection_colour.h"
#include "ui/test_ids.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <utility>

using namespace Qt::StringLiterals;

namespace ui {
ListView::ListView(QWidget* parent) : QTreeView(parent)
{
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setTextElideMode(Qt::ElideRight);
    setWordWrap(false);
    new SelectionColour(*this);
    header()->setSectionsClickable(true);
    header()->setHighlightSections(false);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(header(), &QHeaderView::sectionClicked, this, &ListView::headerClicked);
    connect(this, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& index) { emit opened(index.row()); });
}

void ListView::setListModel(PagedListModel* model)
{
    m_model = model;
    setModel(model);
}

void ListView::keepLightBase()
{
    QPalette light = palette();
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::AlternateBase, QColor(0xf5, 0xf7, 0xfa));
    light.setColor(QPalette::Text, Qt::black);
    setPalette(light);
}

QString ListView::currentKey() const
{
    const QModelIndex current = currentIndex();
    return m_model && current.isValid() ? m_model->rowAt(current.row()).key : QString();
}

void ListView::selectRow(int row)
{
    const QModelIndex index = m_model->index(row, 0);
    selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

void ListView::fill(std::shared_ptr<core::ListSource> source)
{
    m_model->setSource(std::move(source));
    scrollToTop();
}

void ListView::refill(std::shared_ptr<core::ListSource> source, int row)
{
    const QString key = currentKey();
    const int before = currentIndex().row();
    const bool wasSelected = before >= 0 && selectionModel()->isRowSelected(before, {});
    row = row < 0 ? before : row;
    const int position = verticalScrollBar()->value();
    m_refilling = true;
    m_model->setSource(std::move(source));
    if (!key.isEmpty())
        findAgain(key, row, wasSelected);
    m_refilling = false;
    if (!key.isEmpty() && !currentIndex().isValid())
        tellCurrent(-1);
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(position);
}

void ListView::findAgain(const QString& key, int row, bool wasSelected)
{
    const int found = findAgainNear(*m_model, key, row);
    if (found < 0)
        return;
    const QItemSelectionModel::SelectionFlags flags = wasSelected
        ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
        : QItemSelectionModel::NoUpdate;
    selectionModel()->setCurrentIndex(m_model->index(found, 0), flags);
}

void ListView::turnTo(qint64 page)
{
    m_model->setPage(page);
    scrollToTop();
}

QString ListView::selectedText() const
{
    return m_model ? copyText(*m_model, selectionModel()->selection()) : QString();
}

void ListView::copySelection()
{
    const QString text = selectedText();
    if (text.isEmpty())
        return;
    QGuiApplication::clipboard()->setText(text);
    emit copied(selectedRows());
}

qsizetype ListView::selectedRows() const
{
    qsizetype rows = 0;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        rows += range.height();
    return rows;
}

void ListView::setHint(const QString& hint)
{
    m_hint = hint;
    describe(*this, hint);
    viewport()->update();
}

void ListView::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (m_hint.isEmpty() || !model() || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    QColor grey = palette().color(QPalette::Text); // not every theme has one of its own for this
    grey.setAlphaF(0.65F);
    painter.setPen(grey);
    painter.drawText(viewport()->rect().adjusted(8, 4, -8, -4), Qt::AlignCenter | Qt::TextWordWrap,
                     m_hint);
}

// What is cut off in its cell can be read in a tip.
bool ListView::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QTreeView::viewportEvent(event);
    const auto* const asked = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(asked->pos());
    if (index.isValid() && sizeHintForIndex(index).width() > visualRect(index).width())
        QToolTip::showText(asked->globalPos(),
                           u"<p>"_s + index.data().toString().toHtmlEscaped() + u"</p>"_s, this,
                           visualRect(index));
    else
        QToolTip::hideText();
    return true;
}

QSize ListView::minimumSizeHint() const
{
    constexpr int Width = 120;
    const int row = fontMetrics().height() + 4;
    return {Width, header()->sizeHint().height() + 3 * row / 2};
}

bool ListView::toggleCheck()
{
    const QModelIndex box = currentIndex().siblingAtColumn(m_model->checkColumn());
    if (!box.isValid() || !(box.flags() & Qt::ItemIsUserCheckable))
        return false;
    const bool checked = box.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    if (selectedRows() < 2)
        return m_model->setData(box, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    QList<int> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row);
    }
    emit m_model->checksRequested(rows, !checked);
    return true;
}

// A list reached by keys stands on a row, so that the next key does something; a list that gets the
// focus in another way selects nothing of itself.
void ListView::focusInEvent(QFocusEvent* event)
{
    const bool byKeys = event->reason() == Qt::TabFocusReason
        || event->reason() == Qt::BacktabFocusReason || event->reason() == Qt::ShortcutFocusReason;
    if (!currentIndex().isValid() && !byKeys) {
        // The item view's own would make the first row the current one.
        QAbstractScrollArea::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
        viewport()->update();
        return;
    }
    QTreeView::focusInEvent(event);
    if (byKeys && currentIndex().isValid() && !selectionModel()->hasSelection())
        selectRow(currentIndex().row());
    setAttribute(Qt::WA_InputMethodEnabled); // kana are typed to go to a row
}

void ListView::focusOutEvent(QFocusEvent* event)
{
    m_typed.clear();
    QTreeView::focusOutEvent(event);
}

void ListView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
        return;
    }
    const bool plain = !(event->modifiers() & ~Qt::KeypadModifier);
    if (plain && event->key() == Qt::Key_Delete) {
        emit deletionAsked();
        return;
    }
    if (turnByKey(*event))
        return;
    if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        if (currentIndex().isValid())
            emit opened(currentIndex().row());
        return;
    }
    if (plain && event->key() == Qt::Key_Space && toggleCheck())
        return;
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
        contextMenuEvent(&asked);
        return;
    }
    QTreeView::keyPressEvent(event);
}

// At the end of a page the arrow keys go on to the next one; with Ctrl the page keys turn from
// anywhere.
bool ListView::turnByKey(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const int row = currentIndex().row();
    const int key = event.key();
    if (modifiers == Qt::ControlModifier && (key == Qt::Key_PageDown || key == Qt::Key_PageUp)) {
        emit pageWanted(key == Qt::Key_PageDown ? 1 : -1, SameRow);
        return true;
    }
    if (modifiers != Qt::NoModifier || row < 0)
        return false;
    if ((key == Qt::Key_Down || key == Qt::Key_PageDown) && row == model()->rowCount() - 1)
        emit pageWanted(1, 0);
    else if ((key == Qt::Key_Up || key == Qt::Key_PageUp) && row == 0)
        emit pageWanted(-1, -1);
    else
        return false;
    return true;
}

void ListView::keyboardSearch(const QString& letters)
{
    type(letters);
}

void ListView::type(const QString& letters)
{
    constexpr int Pause = 1000; // ms, after which a new text begins
    if (letters.trimmed().isEmpty() && m_typed.isEmpty())
        return;
    if (m_typed.isEmpty() || m_sinceTyped.hasExpired(Pause))
        m_typed.clear();
    m_sinceTyped.start();
    m_typed += letters;
    emit typed(m_typed);
}

// The base class would begin to edit.
void ListView::inputMethodEvent(QInputMethodEvent* event)
{
    if (!event->commitString().isEmpty())
        type(event->commitString());
    event->accept();
}

QVariant ListView::inputMethodQuery(Qt::InputMethodQuery query) const
{
    if (query == Qt::ImEnabled)
        return true;
    return QTreeView::inputMethodQuery(query);
}

void ListView::mousePressEvent(QMouseEvent* event)
{
    m_pressed = true;
    m_pressedAnother = false;
    m_pressedColumn = indexAt(event->position().toPoint()).column();
    QTreeView::mousePressEvent(event);
}

void ListView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    endPress();
}

void ListView::endPress()
{
    if (std::exchange(m_pressed, false) && m_pressedColumn >= 0 && currentIndex().isValid())
        emit chosen(currentIndex().row(), m_pressedColumn, m_pressedAnother);
}

// The base class takes every button for a double click, and two quick clicks on a check box too.
void ListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && !isOnCheckBox(event->position().toPoint()))
        QTreeView::mouseDoubleClickEvent(event);
}

bool ListView::isOnCheckBox(const QPoint& place) const
{
    const QModelIndex index = indexAt(place);
    if (!index.isValid() || !(index.flags() & Qt::ItemIsUserCheckable))
        return false;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    return style()
        ->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this)
        .contains(place);
}

// The menu comes while the button is down, and takes its release: the press ends here, before the
// menu's entries act on the chosen row.
void ListView::contextMenuEvent(QContextMenuEvent* event)
{
    endPress();
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QRect row = visualRect(currentIndex());
        const QPoint corner =
            row.isValid() && viewport()->rect().intersects(row) ? row.bottomLeft() : QPoint();
        place = viewport()->mapToGlobal(corner);
    }
    emit menuRequested(place);
    event->accept();
}

// A model that is reset drops the current row without a word.
void ListView::reset()
{
    QTreeView::reset();
    emit selectedRowsChanged();
    if (!m_refilling)
        tellCurrent(-1);
}

void ListView::tellCurrent(int row)
{
    emit currentRowChanged(row);
    if (m_pressed && row >= 0)
        m_pressedAnother = true;
    else
        emit chosen(row, -1, true);
}

void ListView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    setAttribute(Qt::WA_InputMethodEnabled);
    if (!m_refilling && current.row() != previous.row())
        tellCurrent(current.isValid() ? current.row() : -1);
}

void ListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    emit selectedRowsChanged();
}

} // namespace ui
