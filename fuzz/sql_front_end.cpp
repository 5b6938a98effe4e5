// Feeds the SQL compiler anything at all. It must neither crash nor hang, and whatever it accepts
// the embedded engine must understand: an emitted statement with a fault in it is a fault of ours.
//
// The first byte of an input chooses the database (m, c or r; in capitals the rest is UTF-16, so
// that halves of characters come through), the rest is the statement.

#include "storage/engine/engine.h"
#include "storage/schema/definitions.h"
#include "storage/sql/compile.h"

#include <QTemporaryDir>

#include <cctype>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

struct Database {
    std::unique_ptr<engine::Session> session;
    schema::Catalog catalog;
};

[[noreturn]] void give(const QString& message)
{
    std::fprintf(stderr, "%s\n", message.toUtf8().constData());
    std::abort();
}

Database made(const QString& name, const schema::Definition& definition)
{
    static const QTemporaryDir folder;
    Database database;
    Error error;
    database.session = engine::createEmbedded(folder.filePath(name), u"x"_s, &error);
    if (!database.session || database.session->upkeep().create(definition)
        || database.session->readCatalog(&database.catalog))
        give(u"no database: "_s + error.message);
    return database;
}

Database& databaseOf(char letter)
{
    using schema::Version;
    static Database main = made(u"m"_s, schema::mainDatabase(Version::V311));
    static Database customers = made(u"c"_s, schema::customerFile(Version::V311));
    static Database repairs = made(u"r"_s, schema::repairFile(Version::V300));
    switch (letter) {
    case 'm':
        return main;
    case 'r':
        return repairs;
    default:
        return customers;
    }
}

QString statementOf(const char* data, qsizetype size, bool isUtf16)
{
    if (!isUtf16)
        return QString::fromUtf8(data, size);
    QString text(size / 2, Qt::Uninitialized);
    std::copy_n(data, text.size() * 2, reinterpret_cast<char*>(text.data()));
    return text;
}

// Limits are the engine's own and no fault: too many terms, columns, parameters, too deep a tree.
bool isLimit(const QString& message)
{
    for (const QString& word : {u"too many"_s, u"too large"_s, u"too big"_s, u"at most"_s,
                                u"stack overflow"_s, u"maximum depth"_s}) {
        if (message.contains(word))
            return true;
    }
    return false;
}

void prepare(const Database& database, const sql::Emitted& emitted, const QString& statement)
{
    Error error;
    if (emitted.text.isEmpty() || database.session->prepare(emitted, &error))
        return;
    if (!isLimit(error.message))
        give(error.message + u"\n  "_s + statement + u"\n  "_s + emitted.text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const char letter = static_cast<char>(data[0]);
    const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    const Database& database = databaseOf(lower);
    const QString statement = statementOf(reinterpret_cast<const char*>(data) + 1,
                                          static_cast<qsizetype>(size) - 1, letter != lower);
    const sql::Dialect& dialect = database.session->dialect();
    const auto result = sql::compile(statement, database.catalog, dialect);
    if (const auto* error = std::get_if<Error>(&result)) {
        if (error->position < 0 || error->position > statement.size() || error->message.isEmpty())
            give(u"a refusal without place or reason: "_s + statement);
        return 0;
    }
    const auto& compiled = std::get<sql::Compiled>(result);
    prepare(database, compiled.statement, statement);
    prepare(database, compiled.count, statement);
    if (compiled.kind == sql::StatementKind::Rows)
        prepare(database, sql::window(compiled, 10, 5, dialect), statement);
    return 0;
}
