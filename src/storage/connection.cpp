#include "storage/connection.h"

#include "storage/base/waiting.h"
#include "storage/engine/engine.h"
#include "storage/listed_texts.h"
#include "storage/schema/catalog.h"
#include "storage/schema/definitions.h"
#include "storage/sql/compile.h"
#include "storage/transaction.h"

#include <QCache>

#include <functional>

namespace storage {

using namespace Qt::StringLiterals;
using engine::Lock;
using engine::LockKind;

// What is open. The lock comes first, so that it is the last to go.
struct Connection::Private {
    Private(std::unique_ptr<Lock> held, std::unique_ptr<engine::Session> opened, const QString& at,
            Mode shared)
        : lock(std::move(held)), session(std::move(opened)), path(at), mode(shared)
    {
    }

    std::unique_ptr<Lock> lock;
    std::unique_ptr<engine::Session> session;
    QString path;
    Mode mode;
    schema::Catalog catalog;
    // By their text and the types of their values; a screen asks the same few questions again and
    // again. The places of the values are still empty in them.
    QCache<std::pair<QString, QByteArray>, sql::Compiled> compiled{64};
    int depth = 0;
    ListedTexts listed;
    bool catalogChanged = false; // inside the open transaction
};

namespace {

Error stateError(const QString& message)
{
    return {ErrorKind::State, message};
}

QList<ValueType> typesOf(const QList<Value>& values)
{
    QList<ValueType> types;
    for (const Value& value : values)
        types.append(value.type());
    return types;
}

// The types as part of a key.
QByteArray lettersOf(const QList<ValueType>& types)
{
    QByteArray letters;
    for (const ValueType type : types)
        letters.append(static_cast<char>('a' + static_cast<int>(type)));
    return letters;
}

// Does a step that is the better for being the only copy that has the file open.
std::optional<Error> tryAlone(Lock& lock, Mode mode,
                              const std::function<std::optional<Error>(bool alone)>& step)
{
    if (mode == Mode::ShareExclusive)
        return step(true);
    const bool alone = lock.raise();
    std::optional<Error> error;
    if (lock.isHeld())
        error = step(alone);
    if (alone)
        lock.lower();
    if (!lock.isHeld())
        return Error{ErrorKind::InUse, u"ファイルは他で使用中の為、開くことができません。"_s};
    return error;
}

// Indexes that another version of the text rules has made are renewed before anybody reads by them.
std::optional<Error> settleTextIndexes(engine::Upkeep& upkeep, Lock& lock, Mode mode)
{
    if (!upkeep.hasForeignTextIndexes())
        return {};
    const ShownWork shown;
    return tryAlone(lock, mode, [&](bool alone) { return upkeep.renewTextIndexes(alone); });
}

} // namespace

Connection::Connection() = default;

Connection::~Connection()
{
    close();
}

bool Connection::open(const Location& file, const QString& password, Mode mode)
{
    if (isOpen())
        return fail(stateError(u"すでにファイルを開いています。"_s));
    engine::Engine& engine = file.engine();
    // No lock file is left beside a file that is not there. What is there and no data file is told
    // by the opening.
    if (engine.identity(file.name()).isEmpty())
        return fail({ErrorKind::Missing, u"ファイルが見つかりません。"_s});
    Error error;
    auto lock = engine.lock(
        file.name(), mode == Mode::ShareExclusive ? LockKind::Exclusive : LockKind::Shared, &error);
    if (!lock)
        return fail(error);
    auto session = engine.open(file.name(), password, &error);
    if (!session)
        return fail(error);
    if (auto failure = settleTextIndexes(session->upkeep(), *lock, mode))
        return fail(*failure);
    return adopt(std::make_unique<Private>(std::move(lock), std::move(session), file.name(), mode));
}

bool Connection::create(const Location& file, const QString& password,
                        const schema::Definition& definition)
{
    if (isOpen())
        return fail(stateError(u"すでにファイルを開いています。"_s));
    engine::Engine& engine = file.engine();
    Error error;
    auto lock = engine.lock(file.name(), LockKind::Exclusive, &error);
    if (!lock)
        return fail(error);
    auto session = engine.create(file.name(), password, &error);
    if (!session)
        return fail(error);
    if (auto failure = session->upkeep().create(definition)) {
        session.reset();
        engine.remove(file.name());
        return fail(*failure);
    }
    return adopt(std::make_unique<Private>(std::move(lock), std::move(session), file.name(),
                                           Mode::ShareExclusive));
}

bool Connection::adopt(std::unique_ptr<Private> opened)
{
    if (auto failure = opened->session->readCatalog(&opened->catalog))
        return fail(*failure);
    d = std::move(opened);
    return true;
}

void Connection::close()
{
    if (!isOpen())
        return;
    const QList<ConnectionUser*> users = std::exchange(m_users, {});
    for (ConnectionUser* user : users)
        user->connectionClosing();
    if (d->depth > 0)
        d->session->rollBack(0);
    d.reset();
}

bool Connection::isOpen() const
{
    return d != nullptr;
}

QString Connection::path() const
{
    return d ? d->path : QString();
}

Mode Connection::mode() const
{
    return d ? d->mode : Mode::ReadWrite;
}

bool Connection::compile(const QString& statement, const QList<Value>& values,
                         sql::Compiled* compiled)
{
    if (!isOpen())
        return fail(stateError(u"ファイルを開いていません。"_s));
    const QList<ValueType> types = typesOf(values);
    const std::pair key(statement, lettersOf(types));
    if (const sql::Compiled* known = d->compiled.object(key)) {
        *compiled = *known;
        return fill(statement, values, compiled);
    }
    auto result = sql::compile(statement, d->catalog, d->session->dialect(), types);
    const Error* refused = std::get_if<Error>(&result);
    // Another copy may have upgraded the file since its tables were read.
    if (refused && refused->kind == ErrorKind::Name && rereadCatalog())
        result = sql::compile(statement, d->catalog, d->session->dialect(), types);
    refused = std::get_if<Error>(&result);
    if (refused)
        return fail(*refused);
    *compiled = std::move(std::get<sql::Compiled>(result));
    // A write without places for values is another one each time.
    if (compiled->kind == sql::StatementKind::Rows || !values.isEmpty())
        d->compiled.insert(key, new sql::Compiled(*compiled));
    return fill(statement, values, compiled);
}

bool Connection::compile(const QString& statement, sql::Compiled* compiled)
{
    return compile(statement, {}, compiled);
}

bool Connection::fill(const QString& statement, const QList<Value>& values, sql::Compiled* compiled)
{
    std::optional<Error> error = sql::fill(compiled, values, d->session->dialect());
    if (error)
        error->statement = statement;
    return check(std::move(error));
}

bool Connection::execute(const QString& statement, qint64* affected)
{
    return execute(statement, QList<Value>(), affected);
}

bool Connection::execute(const QString& statement, const QList<Value>& values, qint64* affected)
{
    sql::Compiled compiled;
    if (!compile(statement, values, &compiled))
        return false;
    qint64 written = 0;
    if (!runWrite(compiled, statement, &written))
        return false;
    if (affected)
        *affected = compiled.kind == sql::StatementKind::Write ? written : 0;
    if (compiled.kind != sql::StatementKind::Definition)
        return true;
    d->catalogChanged = d->depth > 0;
    return rereadCatalog();
}

// The texts that a statement brings are listed in one step with it.
bool Connection::runWrite(const sql::Compiled& compiled, const QString& statement, qint64* written)
{
    std::optional<Transaction> own;
    const bool lists = !compiled.listed.isEmpty();
    if (lists && !own.emplace(*this).isActive())
        return false;
    auto error = lists ? d->listed.run(*d->session, compiled, written)
                       : d->session->run(compiled.statement, written);
    if (error) {
        error->statement = statement;
        return fail(*error);
    }
    return !own || own->commit();
}

bool Connection::listTexts(const QString& table, const QList<std::pair<QString, Value>>& values)
{
    const schema::Table* found = d->catalog.find(table);
    return !found || check(d->listed.add(*d->session, *found, values));
}

QStringList Connection::distinctTexts(const QString& table, const QString& column)
{
    const schema::Table* found = catalog().find(table);
    const int place = found ? found->indexOf(column) : -1;
    QStringList texts;
    if (place < 0) {
        fail({ErrorKind::Name, u"列「"_s + column + u"」がありません。"_s});
    } else if (!check(ListedTexts::read(*d->session, *found, found->columns()[place], &texts))) {
        texts.clear();
    }
    return texts;
}

bool Connection::begin()
{
    if (!isOpen())
        return fail(stateError(u"ファイルを開いていません。"_s));
    if (!check(d->session->begin(d->depth)))
        return false;
    ++d->depth;
    return true;
}

bool Connection::commit()
{
    if (transactionDepth() == 0)
        return fail(stateError(u"トランザクションは開始されていません。"_s));
    if (auto error = d->session->commit(d->depth - 1)) {
        fail(*error);
        rollBack();
        return false;
    }
    if (--d->depth == 0)
        d->catalogChanged = false;
    return true;
}

bool Connection::rollBack()
{
    if (transactionDepth() == 0)
        return fail(stateError(u"トランザクションは開始されていません。"_s));
    --d->depth;
    d->listed.forget();
    const bool rolledBack = check(d->session->rollBack(d->depth));
    if (!d->catalogChanged)
        return rolledBack;
    d->catalogChanged = d->depth > 0;
    return rereadCatalog() && rolledBack;
}

int Connection::transactionDepth() const
{
    return d ? d->depth : 0;
}

bool Connection::bringUpToDate(const schema::Definition& definition)
{
    if (!isOpen() || d->depth > 0)
        return fail(stateError(u"この状態では索引を作成できません。"_s));
    engine::Upkeep& upkeep = d->session->upkeep();
    const auto convert = [&](bool alone) -> std::optional<Error> {
        if (!alone)
            return std::nullopt;
        const ShownWork shown; // some seconds for a large file
        return upkeep.convert(definition);
    };
    const bool done = check(upkeep.hasFormerFormat() ? tryAlone(*d->lock, d->mode, convert)
                                                     : upkeep.completeIndexes(definition));
    if (!d->lock->isHeld())
        close();
    return done && rereadCatalog();
}

const schema::Catalog& Connection::catalog() const
{
    static const schema::Catalog none;
    return d ? d->catalog : none;
}

bool Connection::rereadCatalog()
{
    schema::Catalog catalog;
    if (auto error = d->session->readCatalog(&catalog))
        return fail(*error);
    d->catalog = std::move(catalog);
    d->compiled.clear();
    return true;
}

Error Connection::lastError() const
{
    return m_errors.isEmpty() ? Error() : m_errors.last();
}

bool Connection::fail(Error error)
{
    m_errors.append(std::move(error));
    return false;
}

bool Connection::check(std::optional<Error> error)
{
    return !error || fail(std::move(*error));
}

engine::Session* Connection::session() const
{
    return d ? d->session.get() : nullptr;
}

void Connection::addUser(ConnectionUser* user)
{
    m_users.append(user);
}

void Connection::removeUser(ConnectionUser* user)
{
    m_users.removeAll(user);
}

} // namespace storage
