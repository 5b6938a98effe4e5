#include "storage/sql/compile.h"
#include "storage/sql/written.h"

#include <QElapsedTimer>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace storage;
using namespace storage::sql;
using namespace storage::sql::test;

namespace {

constexpr int kMegabyte = 1'000'000;
constexpr int kLong = 200'000;       // of what is read in full
constexpr qint64 kPatience = 10'000; // ms; a sanitized build on a busy machine takes some

struct Hostile {
    const char* what;
    QString statement;
    bool accepted = false;
};

QString repeated(const QString& piece, int length)
{
    return piece.repeated(length / static_cast<int>(piece.size()));
}

QString numberedTables(int count)
{
    QStringList tables;
    for (int i = 0; i < count; ++i)
        tables.append(u"main AS t%1"_s.arg(i));
    return u"SELECT t1.No FROM "_s + tables.join(u',');
}

QList<Hostile> hostileStatements()
{
    const QString where = u"SELECT * FROM main WHERE "_s;
    const QChar high(0xD83D);
    const QChar low(0xDE00);
    return {
        {"nothing", QString()},
        {"blanks", repeated(u" 　\t\r\n"_s, kMegabyte)},
        {"a NUL", where + u"種類 = "_s + QChar(0) + u"'a'"_s},
        {"a NUL in a text", where + u"種類 = 'a"_s + QChar(0) + u"b'"_s, true},
        {"half a character at the end", where + high},
        {"half a character first", low + where},
        {"two halves the wrong way round", where + low + high + u" = 1"_s},
        {"half a character in a text", where + u"種類 Like '%"_s + high + u"%'"_s, true},
        {"half a character in a bracket", where + u"種類 Like '["_s + low + u"]%'"_s, true},
        {"half a character in a name", where + u"["_s + high + u"] = 1"_s},
        {"a NUL in a name", u"SELECT * FROM main AS [a"_s + QChar(0) + u"]"_s},
        {"open quote", where + u"種類 = '"_s + repeated(u"''"_s, kMegabyte)},
        {"open bracket", where + repeated(u"["_s, kMegabyte)},
        {"open date", where + repeated(u"# "_s, 999'999)},
        {"parentheses", where + repeated(u"("_s, kMegabyte)},
        {"parentheses of joins", u"SELECT * FROM "_s + repeated(u"("_s, kMegabyte)},
        {"closed parentheses", where + u"("_s.repeated(99) + u"1"_s + u")"_s.repeated(99), true},
        {"one too many", where + u"("_s.repeated(101) + u"1"_s + u")"_s.repeated(101)},
        {"nots", where + repeated(u"not "_s, kMegabyte)},
        {"signs", where + repeated(u"- "_s, kMegabyte) + u"1 = 1"_s},
        {"functions", u"SELECT "_s + repeated(u"max("_s, kMegabyte)},
        {"a long word", where + repeated(u"ガ"_s, kMegabyte) + u" = 1"_s},
        {"a long number", where + u"No = "_s + repeated(u"9"_s, kMegabyte), true},
        {"a great number", where + u"No = 1e999999999"_s, true},
        {"ors", where + repeated(u"No=1 or "_s, kLong) + u"No=2"_s, true},
        {"ands of first characters",
         where + repeated(u"種類 Like '[!ｱ]%' and 種類 Like '[!a-z]%' and "_s, kLong)
             + u"種類 Like '[!ｶ]%'"_s,
         true},
        {"joined texts", u"SELECT "_s + repeated(u"種類 & "_s, kLong) + u"'' FROM main"_s, true},
        {"sums", u"SELECT "_s + repeated(u"No+"_s, kLong) + u"1 FROM main"_s, true},
        {"a long list", where + u"No In ("_s + repeated(u"1,"_s, kLong) + u"2)"_s, true},
        {"stars", u"SELECT "_s + repeated(u"*,"_s, kLong) + u"* FROM main"_s},
        {"columns", u"SELECT "_s + repeated(u"No,"_s, kLong) + u"No FROM main"_s},
        {"tables", numberedTables(60'000)},
        {"sort columns", u"SELECT * FROM main ORDER BY "_s + repeated(u"No,"_s, kLong) + u"No"_s},
        {"unions", repeated(u"SELECT * FROM main UNION "_s, kLong) + u"SELECT * FROM main"_s},
        {"assignments", u"UPDATE main SET "_s + repeated(u"種類=1,"_s, kLong) + u"種類=2"_s},
        {"values", u"INSERT INTO main VALUES ("_s + repeated(u"1,"_s, kLong) + u"2)"_s},
        {"a long pattern", where + u"種類 Like '"_s + repeated(u"%[a-z]_"_s, kLong) + u"'"_s, true},
        {"signs of every kind", repeated(u"<>=!&^%$#@~|\\:;?,."_s, kLong)},
    };
}

TEST(Hostile, StatementsAreAnsweredSoonAndInFull)
{
    for (const Hostile& each : hostileStatements()) {
        QElapsedTimer timer;
        timer.start();
        const auto result = compile(each.statement, catalogOf(u"main"_s), PaperDialect());
        EXPECT_LT(timer.elapsed(), kPatience) << each.what;
        const auto* error = std::get_if<Error>(&result);
        EXPECT_EQ(error == nullptr, each.accepted)
            << each.what << ": " << (error ? error->message.toStdString() : "accepted");
        if (!error)
            continue;
        EXPECT_GE(error->position, 0) << each.what;
        EXPECT_LE(error->position, each.statement.size()) << each.what;
        EXPECT_LT(error->message.size(), 200) << each.what;
    }
}

} // namespace
