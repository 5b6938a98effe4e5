#pragma once

#include "core/data/row_changes.h"
#include "ui/form_state.h"

#include <QDialog>

class QCheckBox;
class QPushButton;

namespace core {
class Messages;
}

namespace ui {

class Drafts;

// What all edit screens of a record have alike. The save button's caption tells the mode: "追　加"
// adds, any other changes. The second button empties the fields while adding and deletes otherwise.
// With 連続して入力 ticked, an add keeps the form open and empties it for the next record.
//
// No text is lost: a save that was refused or failed leaves the form as it is, and what a form
// holds unsaved when it closes is offered when it is opened for the same record again. When that
// record, or the one that a new record was to belong to, is gone, it is offered to the next new
// record of the kind.
class EditForm : public QDialog {
    Q_OBJECT

public:
    EditForm(core::Messages& messages, Drafts& drafts, QWidget* parent);

    void done(int result) override;

signals:
    // A record was added, changed or deleted: the lists are to be read again.
    void written();
    // The record was deleted; given before written().
    void removed();

protected:
    struct Controls {
        QPushButton* Command1 = nullptr; // saves
        QPushButton* Command2 = nullptr; // empties or deletes
        QPushButton* Command3 = nullptr; // closes
        QCheckBox* chkrenzo = nullptr;   // may be null
        QWidget* first = nullptr;        // has the focus when typing begins
    };

    // To be called once with the fields as they are for a new record.
    void initialize(const Controls& controls, bool adding);
    // To be called when the fields hold the record. `draft` names the form and, behind a blank, its
    // record.
    void recordShown(const QString& draft);

    bool isAdding() const;
    // Whether anything was typed since the record was shown or saved.
    bool isChanged() const;

    virtual core::SaveResult save() = 0;
    virtual core::DeleteResult remove() = 0;
    // Where the focus goes when a rule refused what was entered; null: it stays.
    virtual QWidget* refusedField() { return nullptr; }

private:
    void Command1_Click();
    void Command2_Click();
    void saved();
    void emptyFields();
    void offerDraft(const QString& name);
    QString orphanedDraft() const;
    FormState state() const;

    core::Messages& m_messages;
    Drafts& m_drafts;
    Controls m_controls;
    FormState m_empty;
    FormState m_shown;
    QString m_draft;
    bool m_orphaned = false; // no form will be opened for the same record again
};

} // namespace ui
