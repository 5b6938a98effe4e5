#pragma once

#include <QString>

namespace core {

inline constexpr int MajorVersion = 3;
inline constexpr int MinorVersion = 1;
inline constexpr int Revision = 1;

// "3.1.1"
inline QString versionText()
{
    return QString::number(MajorVersion) + u'.' + QString::number(MinorVersion) + u'.'
        + QString::number(Revision);
}

} // namespace core
