#pragma once

#include "storage/base/error.h"
#include "storage/engine/session.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

// What an engine must give: data under names, which are paths for one that keeps them in files.
// What a failing statement leaves standing is said where it runs (session.h). What a Location names
// is reached through the engine that it chose.
namespace storage::engine {

enum class LockKind { Shared, Exclusive };

// A hold on data, kept until it is destroyed. A killed process leaves none.
class Lock {
public:
    Lock() = default;
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    virtual ~Lock() = default;

    // Turns a shared hold into an exclusive one without waiting, and back; false when another
    // copy's hold stands against it. In between the old one may be given up for a moment, so
    // another copy can come first: then nothing is held any longer.
    virtual bool raise() = 0;
    virtual bool lower() = 0;
    virtual bool isHeld() const = 0;
};

class Engine {
public:
    virtual ~Engine() = default;

    // Takes hold of a name, whether there is data under it or not, without waiting. Null when it
    // fails: InUse when another hold stands against it, also one of this process; Missing when
    // there is no place for such a name; ReadOnly, Full or Other.
    virtual std::unique_ptr<Lock> lock(const QString& name, LockKind kind, Error* error) = 0;
    // Whether there is data under the name. Asked without a lock, as the next.
    virtual bool exists(const QString& name) = 0;
    // Tells what is under a name, data or not, from all else, by whatever names it is reached;
    // empty when nothing is.
    virtual QByteArray identity(const QString& name) = 0;

    // The caller holds a lock on every name that it gives from here on, an exclusive one but for
    // open(). What returns without an error has reached the disk.

    // Opens data, and rolls back what a crash left half written; never makes any. Null when it
    // fails: Missing, ReadOnly, Busy or Unreadable.
    virtual std::unique_ptr<Session> open(const QString& name, const QString& password,
                                          Error* error) = 0;
    // Makes new, empty data and opens it. It is no data file before Upkeep::create(). Null when it
    // fails: Exists when there is data under the name, or what a crash left of some; Missing,
    // ReadOnly, Full or Other.
    virtual std::unique_ptr<Session> create(const QString& name, const QString& password,
                                            Error* error) = 0;
    // Makes a copy of a template, whole or not at all. Exists as in create(). The template alone
    // need not be locked.
    virtual std::optional<Error> copy(const QString& source, const QString& name) = 0;
    // What a crash left half written is rolled back before. Exists as in create().
    virtual std::optional<Error> rename(const QString& from, const QString& to,
                                        const QString& password) = 0;
    // With what a crash left of it. Missing when there is none.
    virtual std::optional<Error> remove(const QString& name) = 0;
    // Makes a copy without the room that removed rows left, under the same password. Exists as in
    // create(); a copy that fails is gone again.
    virtual std::optional<Error> compact(const QString& source, const QString& target,
                                         const QString& password) = 0;
    // Gives `draft` the name of the data under `name`, which is gone then, in one step: at every
    // moment there is whole data under it. On failure `name` leads to the one or to the other.
    virtual std::optional<Error> replace(const QString& draft, const QString& name) = 0;
};

// Keeps each set of data in an encrypted file of its own; names are paths.
Engine& embedded();

} // namespace storage::engine
