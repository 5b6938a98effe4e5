#pragma once

#include <QString>

namespace ui {

// A tip that shows a text of the data as it is: what looks marked up (<b>, say) would otherwise be
// taken for markup.
QString plainTip(const QString& text);

} // namespace ui
