#include "storage/data_files/data_files.h"

#include "storage/engine/engine.h"

#include <memory>
#include <vector>

namespace storage::data_files {

using namespace Qt::StringLiterals;
using engine::Engine;
using engine::Lock;
using engine::LockKind;

namespace {

std::optional<Error> refuseMissing(const Location& file)
{
    if (!exists(file))
        return Error{ErrorKind::Missing, u"ファイルが見つかりません。"_s};
    return std::nullopt;
}

// The step's failure, or the first of the locks that it needs that could not be had.
template <typename Step> std::optional<Error> underLocks(const QList<Location>& files, Step step)
{
    std::vector<std::unique_ptr<Lock>> locks;
    for (const Location& file : files) {
        Error error;
        locks.push_back(file.engine().lock(file.name(), LockKind::Exclusive, &error));
        if (!locks.back())
            return error;
    }
    return step(files.first().engine());
}

} // namespace

bool exists(const Location& file)
{
    return file.engine().exists(file.name());
}

QByteArray identity(const Location& file)
{
    return file.engine().identity(file.name());
}

std::optional<Error> create(const Location& source, const Location& file)
{
    // No lock file is left beside a file that could not be made.
    if (auto error = refuseMissing(source))
        return error;
    return underLocks({file},
                      [&](Engine& engine) { return engine.copy(source.name(), file.name()); });
}

std::optional<Error> rename(const Location& from, const Location& to, const QString& password)
{
    if (auto error = refuseMissing(from))
        return error;
    return underLocks({from, to}, [&](Engine& engine) -> std::optional<Error> {
        if (auto error = refuseMissing(from))
            return error;
        return engine.rename(from.name(), to.name(), password);
    });
}

std::optional<Error> remove(const Location& file)
{
    return underLocks({file}, [&](Engine& engine) { return engine.remove(file.name()); });
}

std::optional<Error> compact(const Location& source, const Location& target,
                             const QString& password)
{
    if (auto error = refuseMissing(source))
        return error;
    return underLocks({source, target}, [&](Engine& engine) {
        return engine.compact(source.name(), target.name(), password);
    });
}

std::optional<Error> compactInPlace(const Location& file, const Location& draft,
                                    const QString& password)
{
    if (auto error = refuseMissing(file))
        return error;
    return underLocks({file, draft}, [&](Engine& engine) -> std::optional<Error> {
        if (auto error = engine.compact(file.name(), draft.name(), password))
            return error;
        auto error = engine.replace(draft.name(), file.name());
        if (error)
            engine.remove(draft.name());
        return error;
    });
}

} // namespace storage::data_files
