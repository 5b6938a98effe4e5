#pragma once

#include "core/data/record_key.h"
#include "customer/data/settings.h"
#include "customer/screens/desk.h"

#include <QObject>
#include <QTimer>

class QAction;

namespace customer {

class johokokyaku;
class klogpreview;

// What the menus offer for the floating windows.
struct WindowActions {
    QAction* showDetail = nullptr;     // 顧客詳細表示
    QAction* showCaseDetail = nullptr; // 件名詳細表示
    QAction* showPreview = nullptr;    // ログプレ表示
    QAction* ichi = nullptr;           // stores where the detail window stands
};

// The floating windows beside the main screen: the details of the selected customer and the preview
// of the selected log entry. Whether they are open is kept in the file's settings.
class KokyakuWindows : public QObject {
    Q_OBJECT

public:
    // `settings` are the main screen's; what is changed here is changed there.
    KokyakuWindows(const Desk& desk, Settings& settings, QWidget* window);

    static constexpr int ByKey = -1;
    static constexpr int BeingClicked = -2; // the click and its column follow
    // Another record was selected. `column` is the column that was clicked, from 0.
    void customerSelected(const core::RecordKey& key, int column);
    void caseSelected(const core::RecordKey& key, int column);
    void logSelected(const core::RecordKey& key, int column);
    // Reads what the windows show again.
    void refill();
    // Nothing is left over the menu.
    // Gives the details the keyboard, where they are shown.
    void activateDetail();
    void closeAll();

    const WindowActions& actions() const { return m_actions; }

private:
    QAction* modeAction(const QString& name, const QString& caption, int Settings::*mode);
    void ichi_Click();
    void Timer1_Timer();
    void Timer2_Timer();
    void showDetailWindow();
    void setMode(QAction& action, int Settings::*mode, bool on);
    void detailClosed();

    Desk m_desk;
    Settings& m_settings;
    johokokyaku* m_detail;
    klogpreview* m_preview;
    QTimer m_Timer1; // one-shot: the detail window after a customer was selected
    QTimer m_Timer2; // the same after a case
    core::RecordKey m_customer;
    core::RecordKey m_case;
    core::RecordKey m_log;
    bool m_closing = false;
    WindowActions m_actions;
};

} // namespace customer
