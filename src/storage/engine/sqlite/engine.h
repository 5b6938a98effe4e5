#pragma once

#include "storage/engine/engine.h"

namespace storage::engine::sqlite {

// Data files of their own, each with its lock file and, while it is written, its journal beside it.
class SqliteEngine final : public Engine {
public:
    std::unique_ptr<Lock> lock(const QString& name, LockKind kind, Error* error) override;
    bool exists(const QString& name) override;
    QByteArray identity(const QString& name) override;

    std::unique_ptr<Session> open(const QString& name, const QString& password,
                                  Error* error) override;
    std::unique_ptr<Session> create(const QString& name, const QString& password,
                                    Error* error) override;
    std::optional<Error> copy(const QString& source, const QString& name) override;
    std::optional<Error> rename(const QString& from, const QString& to,
                                const QString& password) override;
    std::optional<Error> remove(const QString& name) override;
    std::optional<Error> compact(const QString& source, const QString& target,
                                 const QString& password) override;
    std::optional<Error> replace(const QString& draft, const QString& name) override;
};

// What the engine writes beside a file until a transaction has ended, or a crash has left there.
QString journalOf(const QString& path);

} // namespace storage::engine::sqlite
