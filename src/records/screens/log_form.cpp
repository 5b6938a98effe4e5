#include "records/screens/log_form.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QFocusEvent>
#include <QLineEdit>

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
    return EditForm::eventFilter(watched, event);
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
