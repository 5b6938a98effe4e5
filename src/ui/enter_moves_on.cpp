#include "ui/enter_moves_on.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTextEdit>

namespace ui {
namespace {

bool isField(const QWidget* widget)
{
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QPlainTextEdit*>(widget)
        || qobject_cast<const QTextEdit*>(widget) || qobject_cast<const QComboBox*>(widget)
        || qobject_cast<const QAbstractSpinBox*>(widget) || qobject_cast<const QCheckBox*>(widget)
        || qobject_cast<const QRadioButton*>(widget);
}

bool isEnter(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool isFullWidthSpace(const QString& text)
{
    return text == QChar(0x3000);
}

} // namespace

EnterMovesOn::EnterMovesOn(QWidget* form, QAbstractButton* button)
    : QObject(form), m_form(form), m_button(button)
{
    const QList<QWidget*> widgets = form->findChildren<QWidget*>();
    for (QWidget* const widget : widgets) {
        if (isField(widget) || qobject_cast<QAbstractButton*>(widget))
            widget->installEventFilter(this);
    }
}

bool EnterMovesOn::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::InputMethod) {
        const auto* const input = static_cast<QInputMethodEvent*>(event);
        m_composing = input->preeditString().isEmpty() ? nullptr : watched;
        auto* const box = qobject_cast<QCheckBox*>(watched);
        if (box && isFullWidthSpace(input->commitString())) {
            box->click();
            return true;
        }
    } else if (event->type() == QEvent::FocusOut) {
        m_composing = nullptr;
    } else if (event->type() == QEvent::KeyPress) {
        return takeKey(static_cast<QWidget*>(watched), static_cast<QKeyEvent*>(event));
    }
    return false;
}

bool EnterMovesOn::takeKey(QWidget* field, QKeyEvent* event)
{
    auto* const box = qobject_cast<QCheckBox*>(field);
    if (box && isFullWidthSpace(event->text())) {
        box->click();
        return true;
    }
    if (!isEnter(*event))
        return false;
    if (m_composing)
        return true; // also keeps a dialog from taking it for its default button
    auto* const button = qobject_cast<QAbstractButton*>(field);
    if (button && !isField(field)) {
        if (!event->isAutoRepeat())
            button->click();
        return true;
    }
    const bool control = event->modifiers() & Qt::ControlModifier;
    if (m_lineBreaks.contains(field) && !control)
        return false;
    if (!event->isAutoRepeat())
        moveOn(field);
    return true;
}

void EnterMovesOn::moveOn(QWidget* field)
{
    if (QWidget* const next = nextField(field)) {
        next->setFocus(Qt::TabFocusReason);
    } else if (m_button && m_button->isEnabled()) {
        // Leaving the field first, so that what it checks on leaving is checked before a save.
        m_button->setFocus(Qt::TabFocusReason);
        if (m_button && m_button->hasFocus())
            m_button->click();
    }
}

// The next field of the form in its tab order; null after the last.
QWidget* EnterMovesOn::nextField(QWidget* field) const
{
    // The chain is a ring through the window; the form's last field is the one behind which its
    // first one comes again, so a step over the form itself ends the search.
    for (QWidget* each = field->nextInFocusChain(); each != field;
         each = each->nextInFocusChain()) {
        if (each == m_form || each->isWindow())
            return nullptr;
        if (isField(each) && m_form->isAncestorOf(each) && each->isVisibleTo(m_form)
            && each->isEnabled() && (each->focusPolicy() & Qt::TabFocus) && !each->focusProxy())
            return each;
    }
    return nullptr;
}

} // namespace ui
