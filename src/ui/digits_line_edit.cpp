#include "ui/digits_line_edit.h"

#include "core/data/messages.h"
#include "ui/input_method_off.h"

#include <QFocusEvent>
#include <QKeyEvent>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace ui {
namespace {

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

bool isNumber(const QString& text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), isDigit);
}

} // namespace

DigitsLineEdit::DigitsLineEdit(QWidget* parent) : QLineEdit(parent)
{
    setAlignment(Qt::AlignRight);
    switchInputMethodOff(*this);
}

void DigitsLineEdit::keyPressEvent(QKeyEvent* event)
{
    const QString typed = event->text();
    const bool types = !typed.isEmpty() && typed.front().isPrint()
        && !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (types && !isNumber(typed))
        return;
    QLineEdit::keyPressEvent(event);
}

void DigitsLineEdit::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    const bool leaves =
        event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason;
    if (leaves && m_messages && !isNumber(text()))
        // A box opened in here would mix up the change of focus that is going on.
        QMetaObject::invokeMethod(this, &DigitsLineEdit::refuse, Qt::QueuedConnection);
}

void DigitsLineEdit::refuse()
{
    // The form may have been closed by the very click that left the field.
    if (!isVisible() || isNumber(text()))
        return;
    m_messages->warn(u"数字のみ入力して下さい。"_s);
    setText(u"0"_s);
    setFocus(Qt::OtherFocusReason);
    selectAll();
}

} // namespace ui
