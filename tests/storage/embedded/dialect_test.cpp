#include "storage/engine/engine.h"
#include "storage_contract/scratch_file.h"
#include "support/storage/former_format.h"

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

// What the expressions of the engine's dialect give.
class DialectTest : public ScratchFile {
protected:
    const sql::Dialect& dialect() { return connection.session()->dialect(); }

    Value result(const QString& expression, const QList<Value>& values)
    {
        sql::Emitted select{u"SELECT "_s + expression, {}};
        for (const Value& value : values)
            select.parameters += value;
        Error error;
        const auto cursor = connection.session()->prepare(select, &error);
        EXPECT_TRUE(cursor) << error.message.toStdString();
        if (!cursor || cursor->step() != engine::Cursor::Step::Row)
            return Value(u"no row"_s);
        return cursor->value(0, schema::ColumnType::Text);
    }
};

const Value Nothing;

TEST_F(DialectTest, LikeRunsOverJoinedParts)
{
    struct Case {
        QString pattern;
        QList<Value> parts;
        Value matches;
    };
    const std::vector<Case> cases = {
        {u"%ｶﾞﾗｽ%"_s, {Value(u"窓がらす戸"_s)}, Value(1)},
        {u"%bc%"_s, {Value(u"AB"_s), Value(u"CD"_s)}, Value(1)},
        {u"a%d"_s, {Value(u"A"_s), Nothing, Value(u"D"_s)}, Value(1)},
        {u"%"_s, {Nothing}, Nothing},
        {u"%"_s, {Nothing, Nothing}, Value(1)},
        {u"12.5"_s, {Value(1), Value(2.5)}, Value(1)},
        {u"3"_s, {Value(3.0)}, Value(1)},
        {u"[a"_s, {Value(u"[a"_s)}, Value(0)},
        {u"前_後"_s, {Value(u"前\0後"_s)}, Value(1)},
    };
    for (const auto& [pattern, parts, matches] : cases) {
        const QStringList marks(parts.size(), u"?"_s);
        EXPECT_EQ(result(dialect().like(marks, u"?"_s), QList{Value(pattern)} + parts), matches)
            << pattern.toStdString();
    }
    EXPECT_EQ(result(dialect().like({u"?"_s}, u"NULL"_s), {Value(u"x"_s)}), Nothing);
}

// One statement compiles its pattern once; a pattern that differs by row must not be taken for it.
TEST_F(DialectTest, LikeTakesThePatternOfEachRow)
{
    execute(u"INSERT INTO 品目 (名称, ﾒｰｶｰ) VALUES ('甲乙', '甲%')"_s);
    execute(u"INSERT INTO 品目 (名称, ﾒｰｶｰ) VALUES ('甲乙', '乙%')"_s);
    Error error;
    const auto cursor = connection.session()->prepare(
        {u"SELECT "_s + dialect().like({u"名称"_s}, u"ﾒｰｶｰ"_s) + u" FROM 品目 ORDER BY 番号"_s, {}},
        &error);
    ASSERT_TRUE(cursor);
    for (const int expected : {1, 0}) {
        ASSERT_EQ(cursor->step(), engine::Cursor::Step::Row);
        EXPECT_EQ(cursor->value(0, schema::ColumnType::Long), Value(expected));
    }
}

TEST_F(DialectTest, JoinCountsNullAsEmptyAndNumbersAsTheirText)
{
    EXPECT_EQ(result(dialect().join({u"?"_s, u"?"_s, u"?"_s, u"?"_s}),
                     {Value(u"甲\0"_s), Nothing, Value(2.0), Value(-3)}),
              Value(u"甲\0002-3"_s));
    EXPECT_EQ(result(dialect().join({u"?"_s}), {Nothing}), Value(QString()));
}

TEST_F(DialectTest, FoldAndKeyLeaveNullAndNumbersAlone)
{
    for (const Value& value : {Nothing, Value(5), Value(0.5)}) {
        EXPECT_EQ(result(dialect().fold(u"?"_s), {value}), value);
        EXPECT_EQ(result(dialect().key(u"?"_s), {value}), value);
    }
    EXPECT_EQ(result(dialect().fold(u"?"_s), {Value(u"ｶﾞ\0a"_s)}), Value(u"カ\u3099\0A"_s));
}

TEST_F(DialectTest, NamesAreQuotedWhateverTheyHold)
{
    for (const QString& name : {u"４印刷件名"_s, u"a\"b"_s, u"select"_s, u"E-MAIL"_s}) {
        EXPECT_EQ(result(u"x."_s + dialect().name(name) + u" FROM (SELECT ? AS "_s
                             + dialect().name(name) + u") AS x"_s,
                         {Value(7)}),
                  Value(7));
    }
}

TEST_F(DialectTest, BetweenReadsAnIndexInEitherOrder)
{
    const QString select = u"SELECT * FROM 品目 WHERE "_s;
    for (const QString& condition : {u"数量 Between 9 And 2"_s, u"名称 Between 'ｻ' And 'か'"_s}) {
        const QString first = planOf(connection, select + condition).value(0);
        EXPECT_TRUE(first.startsWith(u"SEARCH 品目 USING INDEX _品目_")) << first.toStdString();
    }
}

} // namespace
