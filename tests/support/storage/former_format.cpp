#include "support/storage/former_format.h"

#include "storage/engine/engine.h"
#include "storage/sql/compile.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

QStringList readColumn(Connection& file, const sql::Emitted& statement, int column)
{
    Error error;
    const auto cursor = file.session()->prepare(statement, &error);
    EXPECT_TRUE(cursor) << error.message.toStdString();
    QStringList texts;
    while (cursor && cursor->step() == engine::Cursor::Step::Row)
        texts += cursor->value(column, schema::ColumnType::Text).toText();
    return texts;
}

} // namespace

void makeFormerFormat(Connection& file)
{
    for (const QString& statement : {u"DROP TABLE _columns"_s, u"DROP TABLE _texts"_s,
                                     u"UPDATE _corvane SET value = '1' WHERE name = 'format'"_s})
        ASSERT_FALSE(file.session()->run({statement, {}}, nullptr)) << statement.toStdString();
}

QStringList indexNames(Connection& file)
{
    return readColumn(file,
                      {u"SELECT name FROM sqlite_schema WHERE type = 'index' "
                       "AND substr(name, 1, 1) = '_' AND tbl_name <> '_texts' ORDER BY name"_s,
                       {}},
                      0);
}

bool hasFormerFormat(const Connection& file)
{
    return file.session()->upkeep().hasFormerFormat();
}

QStringList planOf(Connection& file, const QString& statement)
{
    sql::Compiled compiled;
    EXPECT_TRUE(file.compile(statement, &compiled)) << statement.toStdString();
    compiled.statement.text.prepend(u"EXPLAIN QUERY PLAN "_s);
    return readColumn(file, compiled.statement, 3);
}
