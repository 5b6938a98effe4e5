#include "core/data/record_key.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace core {

QString RecordKey::toText() const
{
    if (isNone())
        return u"0-0-0"_s;
    const QString numbers =
        QString::number(updateId) + u'-' + QString::number(mark) + u'-' + QString::number(id);
    return stamp.isEmpty() ? numbers : numbers + u'-' + stamp;
}

RecordKey RecordKey::fromText(QStringView text)
{
    static const QRegularExpression form(u"\\A(-?\\d+)-(-?\\d+)-(-?\\d+)(?:-(.*))?\\z"_s);
    const QRegularExpressionMatch match = form.match(text.toString());
    bool fits = match.hasMatch();
    qint64 numbers[3] = {};
    for (int i = 0; i < 3 && fits; ++i)
        numbers[i] = match.capturedView(i + 1).toLongLong(&fits);
    if (!fits)
        return {};
    return {numbers[0], numbers[1], numbers[2], match.captured(4)};
}

} // namespace core
