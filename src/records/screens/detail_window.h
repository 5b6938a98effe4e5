#pragma once

#include "core/data/record_key.h"

#include <QWidget>

namespace records {

// A floating window with the details of the record that is selected on a main screen.
class DetailWindow : public QWidget {
    Q_OBJECT

public:
    explicit DetailWindow(QWidget* parent);

    // Shows a record of a list. False when it is no longer there; the window then shows what it
    // showed.
    virtual bool showRecord(int list, const core::RecordKey& key) = 0;
    // Reads what is shown again; closes when that has gone.
    virtual void refill() = 0;
    // Moves the window to a place of the screen, in twips, so that all of it is seen.
    void moveToPlace(int left, int top);

signals:
    // The user closed the window.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace records
