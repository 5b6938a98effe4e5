#pragma once

#include "records/data/log_preview.h"

#include <QPoint>
#include <QWidget>

#include <memory>

class QAction;
class QMouseEvent;

namespace Ui {
class logpreview;
}

namespace records {

// Shows the log entry that is selected on the main screen, beside it. Serves both kinds of data
// file: klogpreview stands beside the customer screen, clogpreview beside the repair screen.
class logpreview : public QWidget {
    Q_OBJECT

public:
    ~logpreview() override;

    // Shows an entry of the log as it is stored now; nothing when it is gone.
    void showEntry(const core::RecordKey& key);
    // Whether the user has saved where it is to stand.
    bool hasKeptPlace() const { return m_hasKeptPlace; }
    // What the right-click menu holds; for the menu key as well.
    void RightMenu(const QPoint& screenPoint);

signals:
    // The user closed the window.
    void closed();

protected:
    // `log` lives as long as the program.
    logpreview(DataFile& file, const LogTable& log, QWidget* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Rcopy_Click();
    void temae_Click();
    void ichi_Click();
    void placeWindow(const PreviewPlace& place);
    void stayOnTop(bool onTop);
    void Fmove(const QPoint& screenPoint);
    bool isGrip(const QPoint& place) const;
    bool drag(const QMouseEvent& mouse);

    std::unique_ptr<Ui::logpreview> m_ui;
    DataFile& m_file;
    const LogTable& m_log;
    bool m_onTop = false;
    QAction* m_Rcopy;
    QAction* m_temae;
    QAction* m_ichi;
    QPoint m_grip; // where the window is held while it is dragged, from its corner
    bool m_dragged = false;
    bool m_hasKeptPlace = false;
};

} // namespace records
