#pragma once

#include <QString>
#include <QStringView>

// Line ends: stored text has CR LF, text widgets have LF.
namespace text {

// Every line end (LF, CR, CR LF, and the separators U+2028, U+2029 of text documents) as CR LF.
QString toStoredLines(QStringView text);

// Every line end as LF.
QString toWidgetLines(QStringView text);

} // namespace text
