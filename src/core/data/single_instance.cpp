#include "core/data/single_instance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace core {

std::unique_ptr<QLockFile> lockInstance(const QString& programFolder)
{
    QString canonical = QFileInfo(programFolder).canonicalFilePath();
    if (canonical.isEmpty())
        canonical = QDir::cleanPath(programFolder);
    const QString place = qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")
        ? QDir::tempPath()
        : QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    const QByteArray hash =
        QCryptographicHash::hash(canonical.toUtf8(), QCryptographicHash::Sha256).toHex().left(32);
    auto lock = std::make_unique<QLockFile>(place + u"/corvane-"_s + QString::fromLatin1(hash)
                                            + u".lock"_s);
    lock->setStaleLockTime(0);
    // A place where no lock file can be made must not keep the shop from working.
    if (!lock->tryLock() && lock->error() == QLockFile::LockFailedError)
        return nullptr;
    return lock;
}

} // namespace core
