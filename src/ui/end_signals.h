#pragma once

#include <QObject>

namespace ui {

// As long as this lives, the signals that ask a program to end (of the system that goes down, of
// the session, of a terminal) end it in order: what is being composed is taken as typed, event
// loops return, and whoever listens to QCoreApplication::aboutToQuit can write what it has. One at
// a time.
class EndSignals : public QObject {
    Q_OBJECT

public:
    EndSignals();
    ~EndSignals() override;

private:
    void end();
};

} // namespace ui
