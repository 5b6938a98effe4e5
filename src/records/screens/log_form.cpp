#include "records/screens/log_form.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QFocusEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QWindow>

namespace records {

void LogForm::offerRecorders(QComboBox* field, const std::function<QStringList()>& names)
{
    m_Combo2 = field;
    m_names = names;
    fillCombo2();
    connect(this, &EditForm::written, this, &LogForm::fillCombo2);
    m_Combo2->completer()->setCaseSensitivity(Qt::CaseSensitive);
    m_Combo2->completer()->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    m_Combo2->installEventFilter(this);
    m_Combo2->completer()->popup()->installEventFilter(this);
    m_Combo2->completer()->popup()->setAttribute(Qt::WA_NoMouseReplay); // see below
    // Whoever types a name does not choose one: the list goes, and Enter moves on at once.
    connect(
        m_Combo2->lineEdit(), &QLineEdit::textEdited, this,
        [this] { m_Combo2->completer()->popup()->hide(); }, Qt::QueuedConnection);
}

void LogForm::fillCombo2()
{
    const QString entered = m_Combo2->currentText();
    m_Combo2->clear();
    m_Combo2->addItems(m_names());
    m_Combo2->setCurrentText(entered);
}

bool LogForm::eventFilter(QObject* watched, QEvent* event)
{
    // Who comes back from another window, or from the list itself, does not want the names again.
    if (watched == m_Combo2 && event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            Combo2_GotFocus();
    }
    if (event->type() == QEvent::MouseButtonPress && m_Combo2
        && watched == m_Combo2->completer()->popup()
        && clickedBeside(*static_cast<QMouseEvent*>(event)))
        return true;
    return EditForm::eventFilter(watched, event);
}

// The click that puts the names away goes on to where it was aimed. The window system would give it
// to the list alone.
bool LogForm::clickedBeside(const QMouseEvent& press)
{
    QWidget* const names = m_Combo2->completer()->popup();
    if (names->rect().contains(press.position().toPoint()))
        return false;
    names->hide();
    QWidget* const aimed = QApplication::widgetAt(press.globalPosition().toPoint());
    if (!aimed || aimed->window() != this)
        return true;
    QWidget* field = aimed;
    while (field != this && !(field->focusPolicy() & Qt::ClickFocus))
        field = field->parentWidget();
    if (field != this && field->isEnabled())
        field->setFocus(Qt::MouseFocusReason);
    if (windowHandle())
        QCoreApplication::postEvent(windowHandle(),
                                    new QMouseEvent(QEvent::MouseButtonPress,
                                                    mapFromGlobal(press.globalPosition()),
                                                    press.globalPosition(), press.button(),
                                                    press.buttons(), press.modifiers()));
    return true;
}

// The names drop down as they do by F4, but in a list that leaves the typing to the field: any
// other name can be typed at once.
void LogForm::Combo2_GotFocus()
{
    QMetaObject::invokeMethod(
        this,
        [this] {
            const bool dropped = m_Combo2->view()->isVisible(); // by a click on its arrow
            if (m_Combo2->hasFocus() && m_Combo2->count() > 0 && !dropped)
                m_Combo2->completer()->complete();
        },
        Qt::QueuedConnection);
}

} // namespace records
