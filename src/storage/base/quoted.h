#pragma once

#include <QString>
#include <QStringView>

namespace storage {

// A text from outside as it stands between the single quotes of a statement: a quote in it is
// doubled. Wildcards of Like keep their meaning.
inline QString quoted(QStringView text)
{
    return text.toString().replace(u'\'', QStringLiteral("''"));
}

// A text as Like finds it letter by letter: its wildcards mean themselves.
inline QString likeLiteral(QStringView text)
{
    QString literal;
    for (const QChar letter : text) {
        if (letter == u'[' || letter == u'%' || letter == u'_')
            literal += u'[' + QString(letter) + u']';
        else
            literal += letter;
    }
    return literal;
}

} // namespace storage
