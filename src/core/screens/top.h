#pragma once

#include <QTimer>
#include <QWidget>

#include <memory>

namespace Ui {
class top;
}

namespace core {

class ScreenFlow;
struct Shared;

// The splash screen: a click, a key or its timer closes it, and the menu follows.
class top : public QWidget {
    Q_OBJECT

public:
    top(Shared& shared, ScreenFlow& flow, QWidget* parent = nullptr);
    ~top() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void colourLabel2();

    std::unique_ptr<Ui::top> m_ui;
    Shared& m_shared;
    ScreenFlow& m_flow;
    QTimer Timer1;
};

} // namespace core
