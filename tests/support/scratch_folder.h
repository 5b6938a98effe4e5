#pragma once

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

// A folder of its own for one test. In memory where the machine has such a place: every commit
// waits for the disk several times over, and no test depends on what a disk keeps when the power
// fails.
class ScratchFolder : public QTemporaryDir {
public:
    ScratchFolder() : QTemporaryDir(place() + QStringLiteral("/corvane-XXXXXX")) {}

private:
    static QString place()
    {
        const QString memory = QStringLiteral("/dev/shm");
        return QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
    }
};
