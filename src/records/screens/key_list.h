#pragma once

#include <QAction>
#include <QList>
#include <QPointer>

namespace records {

// Shows the keys of a main screen (キー一覧): those of its commands, by menu, and those that every
// list and every form has.
void showKeyList(QWidget* over, const QList<QAction*>& menus);

// An entry's caption without its mnemonic and the key behind it.
QString plainCaption(const QString& caption);

} // namespace records
