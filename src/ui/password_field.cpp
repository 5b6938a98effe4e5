#include "ui/password_field.h"

#include "ui/icons.h"

#include <QAction>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace ui {

void hidePassword(QLineEdit& field)
{
    field.setEchoMode(QLineEdit::Password);
    QAction* const eye = field.addAction(icon(u"eye"_s), QLineEdit::TrailingPosition);
    eye->setCheckable(true);
    eye->setText(u"ﾊﾟｽﾜｰﾄﾞを表示"_s);
    eye->setToolTip(u"ﾊﾟｽﾜｰﾄﾞを表示する (Ctrl+H)"_s);
    eye->setShortcut(Qt::CTRL | Qt::Key_H);
    eye->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(eye, &QAction::toggled, &field, [&field](bool seen) {
        field.setEchoMode(seen ? QLineEdit::Normal : QLineEdit::Password);
    });
}

} // namespace ui
