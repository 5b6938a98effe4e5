#include "text/lines.h"

using namespace Qt::Literals::StringLiterals;

namespace text {
namespace {

bool isLineEnd(QChar c)
{
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

QString withLineEnds(QStringView text, QStringView lineEnd)
{
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!isLineEnd(text[i])) {
            result += text[i];
            continue;
        }
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
            ++i;
        result += lineEnd;
    }
    return result;
}

} // namespace

QString toStoredLines(QStringView text)
{
    return withLineEnds(text, u"\r\n");
}

QString toWidgetLines(QStringView text)
{
    return withLineEnds(text, u"\n");
}

} // namespace text
