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

} // namespace storage
