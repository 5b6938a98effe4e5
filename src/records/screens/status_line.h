#pragma once

#include <QTimer>
#include <QWidget>

#include <functional>

class QAction;
class QLabel;
class QPushButton;

namespace records {

// The line of a main screen's status bar that says what has happened: read by a screen reader as
// soon as it is said, seen for some seconds.
class StatusLine : public QWidget {
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);

    // Takes the place of what was said before, and of an offer.
    void say(const QString& text);
    // Says it with a button that goes on from there; both stay until something else is said or the
    // button was pressed.
    void offer(const QString& text, const std::function<void()>& goOn);
    QString text() const;
    // Presses the button; possible while something is offered.
    QAction* goOn() { return m_goOn; }

private:
    void show(const QString& text);

    QLabel* m_text;
    QPushButton* m_button;
    QAction* m_goOn;
    std::function<void()> m_offered;
    QTimer m_silence;
};

} // namespace records
