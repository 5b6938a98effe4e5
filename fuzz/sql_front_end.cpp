// Feeds the SQL compiler anything at all. It must neither crash nor hang, and whatever it accepts
// the embedded engine must understand and run: an emitted statement with a fault in it is a fault
// of ours. On a small file the rows of a statement must be as many as are counted, however they are
// found, and as many as without what lets an index find the texts of a Like.
//
// The first byte of an input chooses the database (m, c or r; in capitals the rest is UTF-16, so
// that halves of characters come through), the rest is the statement. Each "?" in it gets a value.

#include "small_file.h"
#include "storage/sql/bind.h"
#include "storage/sql/emit.h"
#include "storage/sql/finding.h"
#include "storage/sql/parser.h"
#include "unindexed.h"

#include <algorithm>
#include <cctype>

using namespace Qt::StringLiterals;
using namespace storage;
using engine::Cursor;
using fuzz::Database;
using fuzz::give;

namespace {

// How many rows one statement may look at: joins of many tables are broken off.
constexpr qint64 kPatience = 3000;

Database& databaseOf(char letter)
{
    using schema::Version;
    static Database main = fuzz::made(u"m"_s, schema::mainDatabase(Version::V311));
    static Database customers = fuzz::made(u"c"_s, schema::customerFile(Version::V311));
    static Database repairs = fuzz::made(u"r"_s, schema::repairFile(Version::V300));
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

QList<Value> valuesFor(const QString& statement)
{
    static const QList<Value> values{
        u"%か%"_s, 3, u"ｱ"_s, Value::fromDateTimeText(u"2026/11/22 10:00:00.000"_s), 2.5, Value()};
    QList<Value> result;
    sql::Lexer lexer(statement);
    for (sql::Token token = lexer.next(); token.kind != sql::TokenKind::End; token = lexer.next()) {
        if (token.isSign(u"?"))
            result.append(values[result.size() % values.size()]);
    }
    return result;
}

// Limits are the engine's own and no fault: too many terms, columns, parameters, too deep a tree.
bool isLimit(const QString& message)
{
    for (const QString& word : {u"too many"_s, u"too large"_s, u"too big"_s, u"at most"_s,
                                u"stack overflow"_s, u"maximum depth"_s, u"integer overflow"_s}) {
        if (message.contains(word))
            return true;
    }
    return false;
}

// How many rows the statement gives; `first` receives the first column of the last one. Nothing
// when it met a limit, or a value that does not fit its column.
std::optional<qint64> run(const Database& database, const sql::Emitted& emitted,
                          const QString& statement, Value* first = nullptr)
{
    Error error;
    const auto cursor = database.session->prepare(emitted, &error);
    qint64 rows = 0;
    if (cursor) {
        cursor->limitWork(kPatience);
        Cursor::Step step = cursor->step();
        for (; step == Cursor::Step::Row; step = cursor->step()) {
            ++rows;
            if (first)
                *first = cursor->value(0, schema::ColumnType::Long);
        }
        if (step == Cursor::Step::Done)
            return rows;
        if (step == Cursor::Step::Stopped)
            return std::nullopt;
        error = cursor->error();
    }
    const bool isMisfit =
        cursor && (error.kind == ErrorKind::Type || error.kind == ErrorKind::Constraint);
    if (!isMisfit && !isLimit(error.message))
        give(error.message + u"\n  "_s + statement + u"\n  "_s + emitted.text);
    return std::nullopt;
}

std::optional<qint64> counted(const Database& database, const sql::Emitted& emitted,
                              const QString& statement)
{
    Value count;
    return run(database, emitted, statement, &count) == 1 ? std::optional(count.toInteger())
                                                          : std::nullopt;
}

void expectSame(std::optional<qint64> expected, std::optional<qint64> found, const QString& what,
                const QString& statement)
{
    if (expected && found && *expected != *found)
        give(
            u"%1: %2, but counted: %3\n  %4"_s.arg(what).arg(*found).arg(*expected).arg(statement));
}

// Which rows a TOP leaves in a part of a union is the engine's choice, and so is what repeats then.
bool isSettled(const sql::bound::Select& select)
{
    return select.parts.size() == 1 || std::ranges::none_of(select.parts, [](const auto& part) {
               return part.top.has_value();
           });
}

void compareUnindexed(const Database& database, const QString& statement,
                      const QList<ValueType>& types, const QList<Value>& values,
                      std::optional<qint64> count)
{
    auto parsed = sql::Parser(statement).parse();
    auto* select = std::get_if<sql::ast::Select>(&std::get<sql::ast::Statement>(parsed));
    if (!select || fuzz::unindex(*select) == 0)
        return;
    const auto bound =
        sql::Binder(statement, database.catalog, types).bind(std::get<sql::ast::Statement>(parsed));
    if (const auto* error = std::get_if<Error>(&bound))
        give(u"refused without index: "_s + error->message + u"\n  "_s + statement);
    const auto& rows = std::get<sql::bound::Select>(std::get<sql::bound::Statement>(bound));
    sql::Compiled compiled;
    compiled.count = sql::Emitter(database.session->dialect()).count(rows);
    if (!sql::fill(&compiled, values, database.session->dialect()) && isSettled(rows))
        expectSame(count, counted(database, compiled.count, statement), u"without index"_s,
                   statement);
}

void runRows(const Database& database, const sql::Compiled& compiled, const QString& statement)
{
    constexpr qint64 limit = 10;
    constexpr qint64 offset = 5;
    const sql::Dialect& dialect = database.session->dialect();
    const auto count = counted(database, compiled.count, statement);
    expectSame(count, run(database, compiled.statement, statement), u"rows"_s, statement);
    const auto window = run(database, sql::window(compiled, limit, offset, dialect), statement);
    if (count)
        expectSame(std::clamp<qint64>(*count - offset, 0, limit), window, u"window"_s, statement);
    const auto finding = sql::finding(compiled, dialect);
    if (!finding)
        return;
    for (const sql::Emitted* way : {&finding->inOrder, &finding->onTheWay, &finding->asTheyLie}) {
        if (!way->text.isEmpty())
            expectSame(count, run(database, *way, statement), u"found"_s, statement);
    }
    if (finding->filter && finding->filter->whole && finding->sources.size() == 1)
        expectSame(count, run(database, finding->filter->rows, statement), u"filtered"_s,
                   statement);
}

// The file is left as it was.
void runChange(const Database& database, const sql::Compiled& compiled, const QString& statement)
{
    if (database.session->begin(0))
        give(u"no transaction"_s);
    run(database, compiled.statement, statement);
    if (database.session->rollBack(0))
        give(u"not rolled back: "_s + statement);
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
    const QList<Value> values = valuesFor(statement);
    QList<ValueType> types;
    for (const Value& value : values)
        types.append(value.type());
    auto result = sql::compile(statement, database.catalog, database.session->dialect(), types);
    if (const auto* error = std::get_if<Error>(&result)) {
        if (error->position < 0 || error->position > statement.size() || error->message.isEmpty())
            give(u"a refusal without place or reason: "_s + statement);
        return 0;
    }
    auto& compiled = std::get<sql::Compiled>(result);
    if (sql::fill(&compiled, values, database.session->dialect()))
        return 0;
    if (compiled.kind != sql::StatementKind::Rows) {
        runChange(database, compiled, statement);
        return 0;
    }
    runRows(database, compiled, statement);
    compareUnindexed(database, statement, types, values,
                     counted(database, compiled.count, statement));
    return 0;
}
