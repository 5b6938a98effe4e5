#include "ui/spare_width.h"

#include <QEvent>
#include <QHeaderView>
#include <QResizeEvent>
#include <QTreeView>

#include <algorithm>

namespace ui {
namespace {

constexpr int LeastLetters = 6; // of a column that holds texts

} // namespace

SpareWidth::SpareWidth(QTreeView& list, const QList<int>& texts)
    : QObject(&list), m_list(list), m_texts(texts)
{
    list.header()->setStretchLastSection(false);
    list.viewport()->installEventFilter(this);
    connect(list.header(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (width > 0 && width < m_least.value(column))
            m_list.header()->resizeSection(column, m_least.value(column));
    });
}

void SpareWidth::setLeast(int column, int width)
{
    m_least.insert(column, width);
    if (!m_list.isColumnHidden(column) && m_list.columnWidth(column) < width)
        m_list.header()->resizeSection(column, width);
}

int SpareWidth::leastOf(int column) const
{
    const int letter = m_list.fontMetrics().horizontalAdvance(QChar(u'あ'));
    return std::max(m_least.value(column), LeastLetters * letter);
}

bool SpareWidth::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        const int before = static_cast<QResizeEvent*>(event)->oldSize().width();
        m_fitted = before <= 0 || m_list.header()->length() <= before;
        share();
    }
    return false;
}

void SpareWidth::share()
{
    const int spare = m_list.viewport()->width() - m_list.header()->length();
    if (spare > 0 || m_fitted)
        giveOrTake(spare);
}

// What one column cannot give falls to the next ones.
void SpareWidth::giveOrTake(int spare)
{
    QList<int> shown;
    std::ranges::copy_if(m_texts, std::back_inserter(shown),
                         [this](int column) { return !m_list.isColumnHidden(column); });
    for (qsizetype i = 0; i < shown.size(); ++i) {
        const int column = shown.at(i);
        const int width = m_list.columnWidth(column);
        const int share = spare / static_cast<int>(shown.size() - i);
        const int wanted = std::max(width + share, std::min(width, leastOf(column)));
        m_list.header()->resizeSection(column, wanted);
        spare -= wanted - width;
    }
}

} // namespace ui
