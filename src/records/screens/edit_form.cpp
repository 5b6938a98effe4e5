#include "records/screens/edit_form.h"

#include "core/data/messages.h"
#include "records/screens/drafts.h"
#include "ui/enter_moves_on.h"

#include <QCheckBox>
#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace records {
namespace {

const QString AddCaption = u"追　加"_s;
const QString ChangeCaption = u"更　新"_s;
const QString EmptyCaption = u"初期化"_s;
const QString DeleteCaption = u"削　除"_s;
const QString DraftQuestion =
    u"前回、保存されずに閉じた入力があります。\r\n続きから入力しますか？"_s;

} // namespace

EditForm::EditForm(core::Messages& messages, Drafts& drafts, QWidget* parent)
    : QDialog(parent), m_messages(messages), m_drafts(drafts)
{
    setWindowModality(Qt::WindowModal);
}

void EditForm::initialize(const Controls& controls, bool adding)
{
    m_controls = controls;
    m_controls.Command1->setText(adding ? AddCaption : ChangeCaption);
    m_controls.Command2->setText(adding ? EmptyCaption : DeleteCaption);
    for (QPushButton* const button :
         {m_controls.Command1, m_controls.Command2, m_controls.Command3}) {
        button->setAccessibleName(button->text().remove(u'　'));
        button->setAutoDefault(false);
    }
    if (m_controls.chkrenzo)
        m_controls.chkrenzo->setVisible(adding);
    connect(m_controls.Command1, &QPushButton::clicked, this, &EditForm::Command1_Click);
    connect(m_controls.Command2, &QPushButton::clicked, this, &EditForm::Command2_Click);
    connect(m_controls.Command3, &QPushButton::clicked, this, &QDialog::reject);
    for (const QKeySequence& key :
         {QKeySequence(QKeySequence::Save), QKeySequence(Qt::CTRL | Qt::Key_Return)})
        connect(new QShortcut(key, this), &QShortcut::activated, m_controls.Command1,
                &QPushButton::click);
    m_controls.Command1->setToolTip(u"Ctrl+S"_s);
    m_empty = state();
}

void EditForm::recordShown(const QString& draft)
{
    m_draft = draft;
    m_shown = state();
    m_controls.first->setFocus();
    offerDraft(m_draft);
    if (isAdding() && !isChanged())
        offerDraft(orphanedDraft());
}

QString EditForm::orphanedDraft() const
{
    return m_draft.section(u' ', 0, 0) + u" *"_s;
}

void EditForm::offerDraft(const QString& name)
{
    const std::optional<FormState> draft = m_drafts.find(name);
    if (!draft)
        return;
    if (m_messages.show(core::MessageStyle::InformationYesNo, DraftQuestion,
                        QString::fromUtf16(core::AppTitleText))
        == core::Answer::Yes) {
        draft->applyTo(*this);
    }
    m_drafts.drop(name);
}

bool EditForm::isAdding() const
{
    return m_controls.Command1->text() == AddCaption;
}

bool EditForm::isChanged() const
{
    return !(state() == m_shown);
}

// 連続して入力 says how to go on; it is no part of the record.
FormState EditForm::state() const
{
    return FormState::of(*this, {m_controls.chkrenzo});
}

void EditForm::Command1_Click()
{
    const SaveResult result = save();
    m_orphaned = result == SaveResult::Gone || result == SaveResult::NoParent;
    switch (result) {
    case SaveResult::Saved:
        saved();
        return;
    case SaveResult::Declined:
    case SaveResult::Gone:
        reject(); // the list is out of date: what was typed is kept for the next opening
        return;
    case SaveResult::Refused:
        if (QWidget* const field = refusedField())
            field->setFocus();
        return;
    case SaveResult::NoParent:
    case SaveResult::Failed:
        return;
    }
}

void EditForm::saved()
{
    m_shown = state();
    emit written();
    if (isAdding() && m_controls.chkrenzo && m_controls.chkrenzo->isChecked())
        emptyFields();
    else
        accept();
}

void EditForm::Command2_Click()
{
    if (isAdding()) {
        emptyFields();
        return;
    }
    const DeleteResult result = remove();
    m_orphaned = result == DeleteResult::Gone;
    switch (result) {
    case DeleteResult::Deleted:
        m_shown = state();
        emit removed();
        emit written();
        accept();
        return;
    case DeleteResult::Declined:
    case DeleteResult::Gone:
        reject();
        return;
    case DeleteResult::Kept:
    case DeleteResult::Failed:
        return;
    }
}

void EditForm::emptyFields()
{
    m_empty.applyTo(*this);
    m_shown = m_empty;
    m_controls.first->setFocus();
}

void EditForm::done(int result)
{
    // What was not edited is left out: another copy may have changed it meanwhile. A record that is
    // gone is kept whole.
    if (isChanged() && m_orphaned)
        m_drafts.keep(orphanedDraft(), state());
    else if (isChanged())
        m_drafts.keep(m_draft, state().changedFrom(m_shown));
    QDialog::done(result);
    // After a message box the window system may have forgotten which window was used before.
    if (parentWidget())
        parentWidget()->window()->activateWindow();
}

} // namespace records
