#include "ui/plain_tip.h"

#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace ui {

QString plainTip(const QString& text)
{
    if (!Qt::mightBeRichText(text))
        return text;
    return u"<qt>"_s + text.toHtmlEscaped().replace(u'\n', u"<br>"_s) + u"</qt>"_s;
}

} // namespace ui
