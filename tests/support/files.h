#pragma once

#include <QFile>

// Files as bytes, for tests that look under the engine or stand in for another program.

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

// Writes a file anew; false when it cannot be written.
inline bool writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// Writes over a stretch of a file, or back what stood there; gives what stood there before.
inline QByteArray overwrite(const QString& path, qint64 from, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite) || !file.seek(from))
        return {};
    const QByteArray before = file.read(bytes.size());
    return file.seek(from) && file.write(bytes) == bytes.size() ? before : QByteArray();
}
