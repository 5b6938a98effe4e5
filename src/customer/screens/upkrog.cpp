#include "customer/screens/upkrog.h"

#include "core/data/clock.h"
#include "text/lines.h"
#include "ui/enter_moves_on.h"
#include "ui_upkrog.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFocusEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace customer {

upkrog::upkrog(CustomerFile& file, records::Drafts& drafts, QWidget* parent, bool adding)
    : EditForm(file.messages, drafts, parent), m_ui(std::make_unique<Ui::upkrog>()), m_file(file)
{
    m_ui->setupUi(this);
    m_ui->DTPicker2->setDate(file.clock.today());
    fillCombo2();
    connect(this, &EditForm::written, this, &upkrog::fillCombo2);
    m_ui->Combo2->completer()->setCaseSensitivity(Qt::CaseSensitive);
    m_ui->Combo2->completer()->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    m_ui->Combo2->installEventFilter(this);
    // Whoever types a name does not choose one: the list goes, and Enter moves on at once.
    connect(
        m_ui->Combo2->lineEdit(), &QLineEdit::textEdited, this,
        [this] { m_ui->Combo2->completer()->popup()->hide(); }, Qt::QueuedConnection);
    auto* const enter = new ui::EnterMovesOn(this, m_ui->Command1);
    enter->keepLineBreaksIn(m_ui->Rrogu);
    initialize({m_ui->Command1, m_ui->Command2, m_ui->Command3, m_ui->chkrenzo,
                adding ? static_cast<QWidget*>(m_ui->DTPicker2) : m_ui->Rrogu},
               adding);
}

upkrog::upkrog(CustomerFile& file, records::Drafts& drafts, const core::RecordKey& ofCase,
               QWidget* parent)
    : upkrog(file, drafts, parent, true)
{
    m_case = ofCase;
    recordShown(u"upkrog + "_s + QString::number(ofCase.updateId));
}

upkrog::upkrog(CustomerFile& file, records::Drafts& drafts, const KeptLog& kept, QWidget* parent)
    : upkrog(file, drafts, parent, false)
{
    m_kept = kept;
    if (kept.fields.recorded.isValid())
        m_ui->DTPicker2->setDate(kept.fields.recorded);
    m_ui->Combo2->setCurrentText(kept.fields.recorder);
    m_ui->Rrogu->setPlainText(text::toWidgetLines(kept.fields.text));
    m_filled = fields();
    recordShown(u"upkrog "_s + QString::number(kept.key.updateId));
}

upkrog::~upkrog() = default;

void upkrog::fillCombo2()
{
    const QString entered = m_ui->Combo2->currentText();
    m_ui->Combo2->clear();
    m_ui->Combo2->addItems(recorderNames(m_file));
    m_ui->Combo2->setCurrentText(entered);
}

bool upkrog::eventFilter(QObject* watched, QEvent* event)
{
    // Who comes back from another window, or from the list itself, does not want the names again.
    if (watched == m_ui->Combo2 && event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            Combo2_GotFocus();
    }
    return EditForm::eventFilter(watched, event);
}

// The names drop down as they do by F4, but in a list that leaves the typing to the field: any
// other name can be typed at once.
void upkrog::Combo2_GotFocus()
{
    QMetaObject::invokeMethod(
        this,
        [this] {
            const bool dropped = m_ui->Combo2->view()->isVisible(); // by a click on its arrow
            if (m_ui->Combo2->hasFocus() && m_ui->Combo2->count() > 0 && !dropped)
                m_ui->Combo2->completer()->complete();
        },
        Qt::QueuedConnection);
}

LogFields upkrog::fields() const
{
    LogFields entered;
    entered.recorded = m_ui->DTPicker2->date();
    entered.recorder = m_ui->Combo2->currentText();
    const QString log = m_ui->Rrogu->toPlainText();
    const QString& before = m_kept.fields.text;
    entered.text = log == text::toWidgetLines(before) ? before : text::toStoredLines(log);
    return entered;
}

records::SaveResult upkrog::save()
{
    return isAdding() ? addLog(m_file, m_case, fields())
                      : changeLog(m_file, m_kept.key, fields(), &m_filled);
}

records::DeleteResult upkrog::remove()
{
    return deleteLog(m_file, m_kept.key);
}

} // namespace customer
