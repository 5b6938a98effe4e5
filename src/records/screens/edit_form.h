#pragma once

#include "records/data/record_table.h"
#include "records/screens/bound_fields.h"
#include "records/screens/desk.h"
#include "records/screens/form_draft.h"
#include "records/screens/form_state.h"

#include <QDate>
#include <QDialog>
#include <QSet>

#include <optional>

class QCheckBox;
class QPushButton;

namespace records {

// What a form is opened for.
struct Opening {
    enum class Mode { Add, Change };
    Mode mode = Mode::Add;
    QString caption; // of the window
    // Of a new record: what it will belong to, in the order of its table's parents.
    QList<core::RecordKey> parents = {};
    // Change: the record as it is, with the key that the list showed. Add: what the fields show
    // first; may be none.
    std::optional<Record> record = {};
    QDate day = {}; // proposed for the record's day; invalid: today
};

// What all edit screens of a record have alike: a form is its fields, each bound to a column of the
// record's table. The save button adds or changes as the form's mode says; the second button
// empties the fields while adding and deletes otherwise. With 連続して入力 ticked, an add keeps the
// form open and empties it for the next record.
//
// No text is lost: a save that was refused or failed leaves the form as it is, fields that were
// emptied come back by Ctrl+Z, and what a form holds unsaved when it closes, or when the program
// ends in whatever way, is offered when it is opened for the same record again. When that record,
// or the one that a new record was to belong to, is gone, it is offered to the next new record of
// the kind.
class EditForm : public QDialog {
    Q_OBJECT

public:
    ~EditForm() override;
    void done(int result) override;
    void setVisible(bool visible) override;

    // The record that was saved last, as it was written; none before.
    const std::optional<Record>& savedRecord() const { return m_saved; }

signals:
    // A record was added, changed or deleted: the lists are to be read again.
    void written();
    // The record was deleted; given before written().
    void removed();

protected:
    struct Controls {
        QPushButton* Command1 = nullptr; // saves
        QPushButton* Command2 = nullptr; // empties or deletes; may be null
        QPushButton* Command3 = nullptr; // closes
        QCheckBox* chkrenzo = nullptr;   // may be null
        QWidget* first = nullptr;        // has the focus when typing begins
        QString nameColumn = {};         // what the record is called by
        QString addCaption = QStringLiteral("追　加");
    };

    // `table` lives as long as the program.
    EditForm(const Desk& desk, const RecordTable& table, Opening opening, QWidget* parent);

    // Which widget shows which column; to be filled before initialize(), in the order in which the
    // columns are written.
    BoundFields& fields() { return m_fields; }
    // To be called once, with the fields as they are for a new record: fills them from the opening
    // and offers a draft. `name` is the form's, for its drafts.
    void initialize(const Controls& controls, const QString& name);
    // What 連続して入力 leaves in the fields for the next record, and the field that it goes on
    // with.
    void continueWith(QWidget* next, const QSet<const QWidget*>& kept);

    const Desk& desk() const { return m_desk; }
    const Opening& opening() const { return m_opening; }
    bool isAdding() const { return m_opening.mode == Opening::Mode::Add; }
    // Whether anything was typed since the record was shown or saved.
    bool isChanged() const;

    // What the buttons do; a form whose records have rules beyond their table's extends them.
    virtual SaveResult save();
    virtual DeleteResult remove();

private:
    void Command1_Click();
    void Command2_Click();
    void saved();
    void emptyFields();
    void beginNext();
    void focusRefused();
    void undoEmptying();
    void offerDraft();
    std::optional<Draft> offerOrphan();
    QString subject() const;
    std::optional<Draft> unsaved() const;
    FormState state() const;

    const Desk m_desk;
    const RecordTable& m_table;
    Opening m_opening;
    BoundFields m_fields;
    FieldValues m_filled; // what the fields showed of the record
    Controls m_controls;
    QWidget* m_next = nullptr; // null: the first
    QSet<const QWidget*> m_kept;
    FormState m_empty;
    FormState m_shown;
    // What the second button took away, and how the form stood to it.
    struct Emptied {
        FormState fields;
        FormState shown;
        FieldValues filled;
        std::optional<Record> record;
    };
    std::optional<Emptied> m_emptied;
    QString m_name;
    std::optional<Record> m_saved;
    bool m_orphaned = false; // no form will be opened for the same record again
    FormDraft m_draft;
    bool m_isClosed = false;
};

} // namespace records
