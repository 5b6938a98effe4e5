#pragma once

#include <QPoint>
#include <QRect>
#include <QWidget>

#include <functional>
#include <memory>

class QAction;

namespace Ui {
class logpreview;
}
namespace core {
class Messages;
}

namespace customer {

// Where the preview window stands and whether it stays in front, as the settings row of a data file
// keeps it; places and sizes in twips.
struct PreviewPlace {
    bool onTop = false; // ログプレ手前
    qint64 left = 0;    // ログプレ横位置
    qint64 top = 0;     // ログプレ縦位置
    qint64 width = 0;   // ログプレ横幅
    qint64 height = 0;  // ログプレ縦幅

    bool operator==(const PreviewPlace& other) const = default;
};

// Shows the log entry that is selected on the main screen, beside it. Serves both kinds of data
// file: klogpreview stands beside the customer screen, clogpreview beside the repair screen.
class logpreview : public QWidget {
    Q_OBJECT

public:
    // Writes the place into the settings of the kind's data file.
    using SavePlace = std::function<void(const PreviewPlace& place)>;

    ~logpreview() override;

    // Shows an entry's text as stored.
    void showText(const QString& preview);
    // What the right-click menu holds; for the menu key as well.
    void RightMenu(const QPoint& screenPoint);

signals:
    // The user closed the window.
    void closed();

protected:
    logpreview(core::Messages& messages, const PreviewPlace& place, SavePlace save,
               QWidget* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Rcopy_Click();
    void temae_Click();
    void ichi_Click();
    void placeWindow();
    void stayOnTop(bool onTop);
    void Fmove(const QPoint& screenPoint);

    std::unique_ptr<Ui::logpreview> m_ui;
    core::Messages& m_messages;
    PreviewPlace m_place;
    SavePlace m_save;
    QAction* m_Rcopy;
    QAction* m_temae;
    QAction* m_ichi;
    QPoint m_grip; // where the window is held while it is dragged, from its corner
    bool m_dragged = false;
};

} // namespace customer
