#pragma once

#include "core/data/record_key.h"
#include "records/data/settings.h"
#include "records/screens/desk.h"
#include "records/screens/detail_window.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>

#include <memory>
#include <vector>

class QAction;

namespace records {

class Selection;
class logpreview;

// A list whose selected record a floating window shows, and the settings that say so.
struct WindowMode {
    int list = 0;   // of the selection
    QString action; // its entry in the menus
    QString caption;
    Setting shown;       // 1: the window is open
    Setting clickColumn; // whose click opens it: 0 any, else from 1 on
};

// The floating windows beside a main screen: the details of the selected record, and the preview of
// the selected log entry. Whether they are open is kept in the file's settings.
class FloatingWindows : public QObject {
    Q_OBJECT

public:
    struct Description {
        QList<WindowMode> details; // the lists whose records the detail window shows
        WindowMode preview;
        Setting left; // where the detail window is kept, in twips
        Setting top;
        QString placeCaption; // of the entry that keeps its place
        QString notShown;     // told when there is none to be kept
        // What the windows are not to cover when they open first: the list that one explains, by
        // its number, and what is never covered.
        QHash<int, const QWidget*> lists = {};
        const QWidget* toolBar = nullptr;
    };

    // `settings` and `selection` are the main screen's and live longer, as the windows do.
    FloatingWindows(const Desk& desk, Settings& settings, const Selection& selection,
                    Description description, DetailWindow* detail, logpreview* preview);

    static constexpr int ByKey = -1;
    // A record of a list was chosen, by a click in a column (from 0) or by key. A window that is
    // open follows; one that this column opens is opened.
    void chosen(int list, int column);
    // Reads what the windows show again.
    void refill();
    // Gives the details the keyboard; opens them where they are not shown.
    void activateDetail();
    // Nothing is left over the menu.
    void closeAll();

    // The entries of the modes in their order, the preview's last, and the one that keeps the
    // place.
    const QList<QAction*>& modeActions() const { return m_actions; }
    QAction* ichi() const { return m_ichi; }

private:
    QAction* modeAction(const WindowMode& mode);
    void setMode(const WindowMode& mode, bool on);
    bool opens(const WindowMode& mode, int column) const;
    bool isPreview(const WindowMode& mode) const;
    void showDetailOf(int list);
    void showPreview(int column);
    void openPreview();
    void placeFirst(QWidget& window, const QWidget& other, int list);
    void detailClosed();
    void ichi_Click();

    Desk m_desk;
    Settings& m_settings;
    const Selection& m_selection;
    Description m_description;
    DetailWindow* m_detail;
    logpreview* m_preview;
    QList<QAction*> m_actions;
    QAction* m_ichi;
    // One-shot, one for each list: the detail window after a record was selected (Timer1, Timer2
    // …).
    std::vector<std::unique_ptr<QTimer>> m_timers;
    QSet<const QWidget*> m_placed; // have been open
    bool m_closing = false;
};

} // namespace records
