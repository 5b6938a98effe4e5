#pragma once

#include <QLabel>

namespace core {

// A label whose text has a dark outline, so that it can be read in any fore colour.
class OutlinedLabel : public QLabel {
    Q_OBJECT

public:
    explicit OutlinedLabel(QWidget* parent = nullptr) : QLabel(parent) {}

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace core
