#pragma once

#include <QHash>
#include <QList>
#include <QObject>

class QTreeView;

namespace ui {

// Shares the width that a list's columns leave among those that hold texts, whenever the list gets
// wider or narrower; the others keep their widths, and what the user gave a column stays his. No
// column gets narrower than its least width.
class SpareWidth : public QObject {
    Q_OBJECT

public:
    // The columns that hold texts. The list owns it.
    SpareWidth(QTreeView& list, const QList<int>& texts);

    void setLeast(int column, int width);
    // To be called when columns were hidden or shown.
    void share();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int leastOf(int column) const;
    void giveOrTake(int spare);

    QTreeView& m_list;
    QList<int> m_texts;
    QHash<int, int> m_least;
    bool m_fitted = true; // the columns had room before the list's width changed
};

} // namespace ui
