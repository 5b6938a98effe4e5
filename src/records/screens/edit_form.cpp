#include "records/screens/edit_form.h"

#include "core/data/messages.h"
#include "records/screens/draft_name.h"
#include "records/screens/undo_emptying.h"
#include "ui/scrolling_body.h"
#include "ui/window_placement.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

#include <utility>

using namespace Qt::StringLiterals;

namespace records {
namespace {

const QString ChangeCaption = u"更　新"_s;
const QString EmptyCaption = u"初期化"_s;
const QString DeleteCaption = u"削　除"_s;
constexpr qsizetype LongestName = 30; // of a record, in a sentence

} // namespace

EditForm::EditForm(const Desk& desk, const RecordTable& table, Opening opening, QWidget* parent)
    : QDialog(parent),
      m_desk(desk),
      m_table(table),
      m_opening(std::move(opening)),
      m_draft(desk, [this] { return unsaved(); })
{
    setWindowModality(Qt::WindowModal);
}

// It may go without having been closed: with the window that it stands over, or with the program.
EditForm::~EditForm()
{
    if (!m_isClosed)
        m_draft.write();
}

void EditForm::initialize(const Controls& controls, const QString& name)
{
    m_controls = controls;
    m_name = name;
    if (!m_opening.caption.isEmpty())
        setWindowTitle(m_opening.caption);
    m_controls.Command1->setText(isAdding() ? m_controls.addCaption : ChangeCaption);
    m_controls.Command1->setToolTip(u"Ctrl+S"_s);
    connect(m_controls.Command1, &QPushButton::clicked, this, &EditForm::Command1_Click);
    if (m_controls.Command2) {
        m_controls.Command2->setText(isAdding() ? EmptyCaption : DeleteCaption);
        connect(m_controls.Command2, &QPushButton::clicked, this, &EditForm::Command2_Click);
    }
    connect(m_controls.Command3, &QPushButton::clicked, this, &QDialog::reject);
    for (QPushButton* const button :
         {m_controls.Command1, m_controls.Command2, m_controls.Command3}) {
        if (!button)
            continue;
        button->setAccessibleName(button->text().remove(u'　'));
        button->setAutoDefault(false);
    }
    if (m_controls.chkrenzo)
        m_controls.chkrenzo->setVisible(isAdding());
    for (const QKeySequence& key :
         {QKeySequence(QKeySequence::Save), QKeySequence(Qt::CTRL | Qt::Key_Return)})
        connect(new QShortcut(key, this), &QShortcut::activated, m_controls.Command1,
                &QPushButton::click);
    m_fields.checkNumbers(m_desk.file.messages);
    m_empty = state();
    if (m_opening.record)
        m_fields.fill(m_opening.record->fields);
    m_filled = m_fields.values();
    m_shown = state();
    ui::scrollBody(*this);
    ui::restoreWindow(*this, m_desk.userSettings);
    m_controls.first->setFocus();
    offerDraft();
    m_draft.watch(*this);
    new UndoEmptying(
        this, [this] { return m_emptied.has_value(); }, [this] { undoEmptying(); });
}

// A new record comes back as it was left. Of one that is there, fields that were not edited keep
// what it holds now: another copy may have changed it meanwhile.
void EditForm::offerDraft()
{
    std::optional<Draft> draft = m_draft.offer(draftName(m_name, m_opening), m_shown);
    if (!draft && isAdding())
        draft = offerOrphan();
    if (draft) {
        FormState::fromText(isAdding() ? draft->whole : draft->edited)
            .changedFrom(m_shown)
            .applyTo(*this, FormState::As::Typed);
    }
}

std::optional<Draft> EditForm::offerOrphan()
{
    for (const QString& name : m_desk.drafts.forms()) {
        if (!isOrphaned(m_desk.file, m_table, m_name, name))
            continue;
        if (std::optional<Draft> draft = m_draft.offer(name, m_shown))
            return draft;
    }
    return std::nullopt;
}

// Whose draft it is: what the window says, and what the record is called.
QString EditForm::subject() const
{
    const QString name = isAdding() ? fieldText(m_fields.values(), m_controls.nameColumn)
                                    : fieldText(m_opening.record->fields, m_controls.nameColumn);
    QString shortName = name.simplified().left(LongestName);
    if (shortName.size() == LongestName)
        shortName += u'…';
    return windowTitle().trimmed() + (isAdding() ? u"（新規）"_s : QString())
        + (shortName.isEmpty() ? QString() : u" 「"_s + shortName + u"」"_s);
}

std::optional<Draft> EditForm::unsaved() const
{
    if (!isChanged())
        return std::nullopt;
    const FormState now = state();
    return Draft{.form = m_orphaned ? orphanedDraftName(m_name) : draftName(m_name, m_opening),
                 .subject = subject(),
                 .edited = now.changedFrom(m_shown).toText(),
                 .whole = now.toText()};
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

SaveResult EditForm::save()
{
    Record written;
    const SaveResult result = isAdding()
        ? addRecord(m_desk.file, m_table, m_opening.parents, m_fields.values(), &written, m_filled)
        : changeRecord(m_desk.file, m_table, m_opening.record->key, m_fields.values(), m_filled,
                       &written);
    if (result == SaveResult::Saved)
        m_saved = written;
    return result;
}

DeleteResult EditForm::remove()
{
    return removeRecord(m_desk.file, m_table, m_opening.record->key);
}

void EditForm::Command1_Click()
{
    if (!m_fields.judgeNumbers())
        return;
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
        focusRefused();
        return;
    case SaveResult::NoParent:
    case SaveResult::Failed:
        return;
    }
}

void EditForm::focusRefused()
{
    const FieldValues entered = m_fields.values();
    const std::optional<Refusal> refusal = refusalOf(m_table, entered, editedOf(entered, m_filled));
    if (QWidget* const field = refusal ? m_fields.widgetOf(refusal->column) : nullptr)
        field->setFocus();
}

void EditForm::saved()
{
    m_shown = state();
    m_draft.write();
    emit written();
    if (isAdding() && m_controls.chkrenzo && m_controls.chkrenzo->isChecked())
        beginNext();
    else
        accept();
}

// What was typed into the empty fields since then stays.
void EditForm::undoEmptying()
{
    const Emptied before = *std::exchange(m_emptied, std::nullopt);
    const FormState back = before.fields.without(state().changedFrom(m_empty));
    m_opening.record = before.record;
    m_filled = before.filled;
    m_shown = before.shown;
    back.applyTo(*this);
    back.changedFrom(m_shown).applyTo(*this, FormState::As::Typed);
}

void EditForm::Command2_Click()
{
    if (isAdding()) {
        const Emptied before{state(), m_shown, m_filled, m_opening.record};
        emptyFields();
        m_emptied = before;
        return;
    }
    const DeleteResult result = remove();
    m_orphaned = result == DeleteResult::Gone;
    switch (result) {
    case DeleteResult::Deleted:
        m_shown = state();
        m_draft.write();
        m_desk.drafts.dropAll(draftName(m_name, m_opening));
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
    m_opening.record.reset(); // what comes now is no copy of it any more, and its draft not either
    m_emptied.reset();
    m_empty.applyTo(*this);
    m_shown = m_empty;
    m_filled = m_fields.values();
    m_controls.first->setFocus();
}

void EditForm::continueWith(QWidget* next, const QSet<const QWidget*>& kept)
{
    m_next = next;
    m_kept = kept;
}

void EditForm::beginNext()
{
    QSet<const QWidget*> others;
    for (const QWidget* const each : findChildren<QWidget*>()) {
        if (!m_kept.contains(each))
            others.insert(each);
    }
    const FormState kept = FormState::of(*this, others);
    emptyFields();
    kept.applyTo(*this);
    m_shown = state();
    m_filled = m_fields.values();
    if (m_next)
        m_next->setFocus();
}

// A dialog selects the text that has the focus first: the next key would replace it, and of a long
// one the end would be seen.
void EditForm::setVisible(bool visible)
{
    QDialog::setVisible(visible);
    auto* const first = qobject_cast<QLineEdit*>(m_controls.first);
    if (visible && first)
        first->home(false);
}

void EditForm::done(int result)
{
    m_draft.close();
    ui::saveWindow(*this, m_desk.userSettings);
    m_isClosed = true;
    QDialog::done(result);
    // After a message box the window system may have forgotten which window was used before.
    if (parentWidget())
        parentWidget()->window()->activateWindow();
}

} // namespace records
