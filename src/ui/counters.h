#pragma once

#include <QWidget>

class QLabel;

namespace ui {

// The three counters over a list: "合計:0" "現在:0" "最大:0".
class Counters : public QWidget {
    Q_OBJECT

public:
    explicit Counters(QWidget* parent = nullptr);

    void setTotal(qint64 number);
    void setCurrent(qint64 number);
    void setMost(qint64 number);
    // All three to 0.
    void reset();

    // As shown, with one blank between them.
    QString text() const;

private:
    QLabel* m_total;
    QLabel* m_current;
    QLabel* m_most;
};

} // namespace ui
