#pragma once

#include <QScrollBar>

namespace ui {

// The horizontal scroll bar under a list that turns its pages: its value is the page, from 1. The
// page is turned when the handle is let go; until then a tip says where it stands. With one page
// the bar is not shown.
class PageScrollBar : public QScrollBar {
    Q_OBJECT

public:
    explicit PageScrollBar(QWidget* parent = nullptr);

    // Sets both without asking for a page.
    void setPages(qint64 page, qint64 count);

signals:
    // The user wants another page.
    void pageChosen(qint64 page);
    // Which page is shown now, as text; empty when there is only one.
    void placeChanged(const QString& place);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString placeText(int page) const;
};

} // namespace ui
