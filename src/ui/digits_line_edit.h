#pragma once

#include <QLineEdit>

namespace core {
class Messages;
}

namespace ui {

// A field for a whole number: keys other than 0 to 9 and Backspace type nothing, and the input
// method is off. Text that came in another way is looked at when the field is left.
class DigitsLineEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit DigitsLineEdit(QWidget* parent = nullptr);

    // When the field is left with a text that is no number (or empty), tells
    // "数字のみ入力して下さい。", sets it to "0" and takes the focus back.
    void checkOnLeaving(core::Messages& messages) { m_messages = &messages; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void refuse();

    core::Messages* m_messages = nullptr;
};

} // namespace ui
