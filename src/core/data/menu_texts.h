#pragma once

#include <QString>
#include <QStringList>

namespace core {

// The descriptions of the menu's buttons from menu.ini of the program folder, one line each, in the
// order of the buttons. UTF-8, or code page 932 when it is not that. Empty when there is no such
// file.
QStringList readMenuTexts(const QString& programFolder);

} // namespace core
