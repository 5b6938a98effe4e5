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
    if (types && !std::ranges::all_of(typed, isDigit))
        return;
    QLineEdit::keyPressEvent(event);
}

void DigitsLineEdit::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    const bool leaves =
        event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason;
    if (leaves && m_messages) {
        // A box opened in here would mix up the change of focus that is going on. The form may be
        // closed by the very click that left the field.
        QMetaObject::invokeMethod(
            this, [this] { return isVisible() && judge(); }, Qt::QueuedConnection);
    }
}

bool DigitsLineEdit::judge()
{
    if (!isModified() || !m_messages)
        return true;
    if (const std::optional<QString> plain = text::plainNumber(text(), m_form)) {
        if (*plain != text()) {
            setText(*plain);
            setModified(true);
        }
        return true;
    }
    setModified(false); // told once, however often it is asked while the box is open
    m_messages->warn(u"数字のみ入力して下さい。"_s);
    setText(u"0"_s);
    setModified(true);
    setFocus(Qt::OtherFocusReason);
    selectAll();
    return false;
}

QString DigitsLineEdit::plainText() const
{
    return text::plainNumber(text(), m_form).value_or(text());
}

} // namespace ui
