#pragma once

#include "text/numbers.h"

#include <QLineEdit>

namespace core {
class Messages;
}

namespace ui {

// A field for a number: keys other than 0 to 9 and Backspace type nothing, and the input method is
// off. Text that came in another way (pasted, composed, stored) counts as a number when it can be
// read as one, and is then written in plain half-width digits.
class DigitsLineEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit DigitsLineEdit(QWidget* parent = nullptr);

    void setForm(text::NumberForm form) { m_form = form; }
    // When the field is left edited and with a text that is no number (or empty), tells
    // "数字のみ入力して下さい。", sets it to "0" and takes the focus back. What was not edited
    // stays.
    void checkOnLeaving(core::Messages& messages) { m_messages = &messages; }
    // The same at once, as when a save is pressed. False when the text was no number.
    bool judge();

    // The number in plain digits; the text as it is when it is none.
    QString plainText() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    core::Messages* m_messages = nullptr;
    text::NumberForm m_form = text::NumberForm::Whole;
};

} // namespace ui
