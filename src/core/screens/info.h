#pragma once

#include <QDialog>
#include <QStringList>

#include <memory>

namespace Ui {
class info;
}

namespace core {

// The notice shown after a data file was opened. A click on its text closes it, as do Enter, the
// space bar and Esc.
class info : public QDialog {
    Q_OBJECT

public:
    explicit info(const QStringList& lines, QWidget* parent = nullptr);
    ~info() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::unique_ptr<Ui::info> m_ui;
};

} // namespace core
