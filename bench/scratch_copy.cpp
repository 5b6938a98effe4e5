#include "scratch_copy.h"

#include "bare_file.h"

#include <QFile>

namespace bench {

using namespace Qt::StringLiterals;

ScratchCopy::ScratchCopy(const QString& original, const QString& name)
    : m_path(original.chopped(4) + u'-' + name + u".mdb"_s)
{
    QFile::remove(m_path);
    if (!QFile::copy(original, m_path))
        giveUp(m_path + u" cannot be written."_s);
}

ScratchCopy::~ScratchCopy()
{
    QFile::remove(m_path);
    QFile::remove(m_path.chopped(4) + u".ldb"_s);
}

} // namespace bench
