#pragma once

#include "storage/connection.h"

#include <QByteArray>
#include <QString>

// What makes an engine refuse a write, in each engine's own words where it has any.

// The first row's first column of an engine's own statement, as text.
QString askEngine(storage::Connection& of, const QString& question);
// The engine's check of the whole file, "ok" when it is sound.
QString integrity(storage::Connection& of);
// Lets the file grow by no more than this many pages, as on a full disk.
void limitSize(storage::Connection& of, int pages);
// Makes the wait for other copies one that a test has the time for.
void shortenWaiting(storage::Connection& of);

// Takes the right to write in a folder away, for as long as it lives.
class ReadOnlyFolder {
public:
    explicit ReadOnlyFolder(const QString& folder);
    ~ReadOnlyFolder();
    ReadOnlyFolder(const ReadOnlyFolder&) = delete;
    ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;

    // False for a superuser that may not mount.
    bool holds() const { return m_holds; }

private:
    QByteArray m_folder;
    bool m_holds;
};
