#pragma once

#include "storage/connection.h"
#include "storage/recordset.h"

#include <QByteArray>
#include <QLockFile>
#include <QString>

#include <functional>
#include <memory>

namespace core {

class Clock;
class Messages;

// The state that lives for the whole run. One object, handed to whoever needs it.
struct Shared {
    Messages& messages;
    const Clock& clock;

    QString programFolder; // absolute, without a "/" at its end
    QString originals;     // what an empty program folder is filled from, or empty
    std::unique_ptr<QLockFile> instanceLock; // held for the whole run

    std::unique_ptr<storage::Connection> MainConnection; // null until OpenMainDatabase
    QByteArray mainIdentity; // of the main.mdb that was opened last; empty while none was
    std::unique_ptr<storage::Recordset> MainRecordset; // closed again by every routine that uses it
    QString SqlText;                                   // the statement last given to MainRecordset
    bool EndOnMenuClose = true;
    QString MessageText;
    QString AppTitle;
    QString DialogAnswer; // "1" or "0" from msgboxf, the button's number from message boxes
    QString HelpFilePath;
    QString CustomerDataPath; // empty when no customer data file is open
    QString RepairDataPath;   // empty when no repair data file is open

    // Is told of a data file that got another name or, where `to` is empty, is gone; may be empty.
    std::function<void(const QString& from, const QString& to)> dataFileMoved;

    Shared(Messages& toldTo, const Clock& timedBy) : messages(toldTo), clock(timedBy) {}
};

} // namespace core
