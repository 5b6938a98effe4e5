#include "core/screens/info.h"

#include "ui_info.h"

#include <QKeyEvent>

namespace core {

info::info(const QStringList& lines, QWidget* parent) : QDialog(parent), m_ui(new Ui::info)
{
    m_ui->setupUi(this);
    m_ui->Label1->setText(lines.join(u'\n'));
    m_ui->Label1->installEventFilter(this);
}

info::~info() = default;

bool info::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease) {
        close();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void info::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space)
        close();
    else
        QDialog::keyPressEvent(event);
}

} // namespace core
