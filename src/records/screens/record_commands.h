#pragma once

#include "records/data/record_table.h"
#include "records/screens/desk.h"
#include "records/screens/edit_form.h"

#include <QHash>
#include <QKeySequence>
#include <QList>
#include <QObject>

#include <functional>

class QAction;
class QToolBar;

namespace records {

class Selection;

// Makes the form of a kind of record; it deletes itself when it closes.
using FormMaker = EditForm* (*)(const Desk& desk, const Opening& opening, QWidget* parent);
template <typename Form>
EditForm* makeForm(const Desk& desk, const Opening& opening, QWidget* parent)
{
    return new Form(desk, opening, parent);
}

// A kind of record that a main screen shows in one of its lists and edits.
struct RecordKind {
    int list;           // of the selection
    QString name;       // in messages: 顧客
    QString titleField; // whose text stands for a record
    const RecordTable& table;
    FormMaker form;
};

// What was done to a record.
struct Written {
    enum class How { Added, Changed, Deleted };
    const RecordKind& kind;
    How how;
    core::RecordKey key; // as it is now
    Record record = {};  // of one that stands

    // In a sentence: 顧客「山田」を追加しました。
    QString told() const;
    QString title;
};

// What a main screen offers, as a row of data. Menus and tool bar are made of it.
struct Command {
    QString name; // of its action
    QString caption;
    std::function<void()> run;
    std::function<bool(const Selection& selected)> possible = {}; // empty: always
    QKeySequence key = {};
    // Its button in the tool bar: name, text, tip and icon; no name: none.
    QString tool = {};
    QString toolText = {};
    QString tip = {};
    QString icon = {};
};

// The commands of a main screen: their actions, which are switched off while what they need is not
// selected, and how they open forms.
class RecordCommands : public QObject {
    Q_OBJECT

public:
    // All of it lives longer than the commands.
    RecordCommands(const Desk& desk, const Selection& selection, QWidget* window);

    void add(const QList<Command>& commands);
    // The action of a command; there is one for each name that is asked for.
    QAction* action(const QString& name) const;
    // An entry under a name of its own that does what a command does.
    QAction* entryFor(const QString& command, const QString& name);
    // The buttons of the commands that have one, before another action of the bar.
    void addTools(QToolBar& bar, QAction* before);

    // Opens a form over the main screen.
    EditForm* open(const RecordKind& kind, const Opening& opening);
    // Opens a form on a record as it is now, but with the key that the list showed: a change made
    // elsewhere since then is noticed when it is saved. Null when the record cannot be read; the
    // user was told.
    EditForm* openRecord(const RecordKind& kind, const core::RecordKey& shown,
                         const QString& caption);
    // Deletes the selected record of a kind as its form does, with the same question and checks.
    // Where several are selected, the user is told that one goes at a time.
    void removeSelected(const RecordKind& kind);

signals:
    // The lists are to be read again. The kind lives as long as the commands.
    void written(const records::Written& written);

private:
    void showSelection();

    const Desk& m_desk;
    const Selection& m_selection;
    QWidget* m_window;
    QList<Command> m_commands;
    QHash<QString, QAction*> m_actions; // by the command's name
    QHash<QString, QAction*> m_tools;   // by the command's name
};

} // namespace records
