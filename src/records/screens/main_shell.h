#pragma once

#include "records/data/settings.h"
#include "records/screens/desk.h"
#include "records/screens/selection.h"

#include <QMainWindow>

#include <functional>

class QAction;
class QMenu;
class QSplitter;
class QToolBar;

namespace records {

class Enlarging;
class FloatingWindows;
class IndexPane;
class ListPane;
class StatusLine;

// What the main screens of both kinds of data file have alike: how panes share the room and are
// reached by keys, the status bar, help, refreshing, what is kept of desk and view, and closing.
// A main screen owns its open data file and closes it when it is closed itself.
class MainShell : public QMainWindow {
    Q_OBJECT

public:
    // Reads all lists again after something was written.
    virtual void refillLists() = 0;

signals:
    // The screen was closed and its file with it: the menu is to be shown again.
    void closed();

protected:
    MainShell(const Desk& desk, QWidget* parent);

    const Desk& desk() const { return m_desk; }
    Settings& settings() { return m_settings; }
    Selection& selection() { return m_selection; }
    StatusLine& status() { return *m_desk.status; }

    // The parts of the screen, handed in once when all of it is made.
    struct Parts {
        QList<QWidget*> panes;  // in the order in which F6 walks
        QList<ListPane*> lists; // stand over one another in `listSplitter`; Ctrl+1, 2, 3
        QSplitter* listSplitter = nullptr;
        FloatingWindows* windows = nullptr;
    };
    void assemble(const Parts& parts);
    // What the menus hold besides what every main screen has.
    struct Menus {
        QList<QAction*> data, edit, view, go;
        QAction* help = nullptr; // shows the help; a button of the tool bar too
    };
    // The menu bar; to be called after assemble().
    void addMenuBar(QToolBar& bar, const Menus& menus);

    // Sizes and columns as the user left them; before that, as they are.
    void restoreDesk();
    // Text that is kept for this user and this data file; empty when there is none.
    QString keptText(const QString& name) const;
    void keepText(const QString& name, const QString& text);

    // F5: the indexes too.
    virtual void refreshAll() = 0;
    // What is shown is kept.
    virtual void saveView() = 0;
    // The lists let go of the file, then it is closed; another screen may want it at once.
    virtual void Form_Unload() = 0;

    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void addKeys();
    void addCommon(QMenu& menu, const QList<QAction*>& own);
    void addHelp(QToolBar& bar, QMenu& menu, QAction* help);
    QAction* shellAction(const QString& name, const QString& caption, const QKeySequence& key,
                         const std::function<void()>& run);
    QAction* toolBarWords(QToolBar& bar);
    void showWords();
    void showStatus();
    void saveDesk() const;
    QString keptName(const QString& name) const;

    const Desk m_desk;
    Settings m_settings;
    Selection m_selection;
    Parts m_parts;
    QToolBar* m_bar = nullptr;
    QAction* m_words = nullptr; // of the tool bar
    Enlarging* m_enlarging = nullptr;
    QList<QAction*> m_goActions; // to panes and pages
};

} // namespace records
