#pragma once

#include <QObject>
#include <QPointer>

#include <vector>

namespace ui {

// Keeps windows alive as long as it lives itself: one that is closed behind an open message box (an
// assistive tool can press the buttons there) and deletes itself would take the box with it, and
// whoever waits for the answer would go on in a window that is no longer there.
class DeletionHold : public QObject {
    Q_OBJECT

public:
    // Holds all windows that are there now: which of them waits for the answer, and over which it
    // stands, is not to be seen from the one that is active.
    DeletionHold();
    ~DeletionHold() override; // those that wanted to go meanwhile go then

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::vector<QPointer<QObject>> m_putOff;
};

} // namespace ui
