#pragma once

#include <QObject>

#include <functional>

class QKeyEvent;
class QWidget;

namespace records {

// Ctrl+Z after all fields of a form were emptied at once: where the field that has the focus has
// nothing of its own to take back, the form gets its chance.
class UndoEmptying : public QObject {
    Q_OBJECT

public:
    // `undo` brings the fields back; false when there is nothing to bring back. Lives as long as
    // the form, whose fields are all there.
    UndoEmptying(QWidget* form, std::function<bool()> isPossible, std::function<void()> undo);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<bool()> m_isPossible;
    std::function<void()> m_undo;
};

} // namespace records
