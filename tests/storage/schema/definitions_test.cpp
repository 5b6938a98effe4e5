#include "storage/schema/definitions.h"

#include <gmock/gmock.h>

#include <QSet>

using namespace Qt::StringLiterals;
using namespace storage::schema;
using storage::Value;

namespace {

struct File {
    const char* name;
    Definition (*define)(Version);
};

void PrintTo(const File& file, std::ostream* out)
{
    *out << file.name;
}

Catalog catalogFrom(const Definition& definition)
{
    Catalog catalog;
    for (const Table& table : definition.tables)
        EXPECT_TRUE(catalog.add(table)) << table.name().toStdString();
    return catalog;
}

QString describe(const Table& table, const Column& column)
{
    static const QStringList types = {u"auto"_s, u"long"_s, u"real"_s, u"text"_s, u"date"_s};
    const QString length = column.maxLength > 0 ? u"(%1)"_s.arg(column.maxLength) : QString();
    return table.name() + u'.' + column.name + u' ' + types[static_cast<int>(column.type)] + length;
}

QSet<QString> columnsOf(const Definition& definition)
{
    QSet<QString> columns;
    for (const Table& table : definition.tables) {
        for (const Column& column : table.columns())
            columns.insert(describe(table, column));
    }
    return columns;
}

Value seeded(const Definition& definition, const QString& table, const QString& column, int row = 1)
{
    for (const SeedRow& seed : definition.rows) {
        if (seed.table != table || seed.values.first().second != Value(row))
            continue;
        for (const auto& [name, value] : seed.values) {
            if (name == column)
                return value;
        }
    }
    return {};
}

// That indexes and first rows name what is there shows when a file is made of them.
class Definitions : public testing::TestWithParam<File> {};

TEST_P(Definitions, NamesAreToldApartAfterFolding)
{
    for (const Version version : {Version::V300, Version::V311}) {
        const Catalog catalog = catalogFrom(GetParam().define(version));
        for (const Table& table : catalog.tables()) {
            EXPECT_EQ(catalog.find(table.name()), &table);
            for (qsizetype i = 0; i < table.columns().size(); ++i)
                EXPECT_EQ(table.indexOf(table.columns()[i].name), i) << table.name().toStdString();
        }
    }
}

// A file of the old version holds every index of the new one whose columns it has; the others are
// made when the columns have been added.
TEST_P(Definitions, OnlyIndexesOnAddedColumnsAreMissingInTheOldVersion)
{
    const Definition old = GetParam().define(Version::V300);
    const Catalog catalog = catalogFrom(old);
    for (const Index& index : GetParam().define(Version::V311).indexes) {
        const bool there = std::ranges::any_of(
            old.indexes, [&index](const Index& other) { return other.name == index.name; });
        const bool possible = std::ranges::all_of(index.parts, [&](const IndexPart& part) {
            return catalog.find(index.table)->indexOf(part.column) >= 0;
        });
        EXPECT_EQ(there, possible) << index.name.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(All, Definitions,
                         testing::Values(File{"main", mainDatabase}, File{"customer", customerFile},
                                         File{"repair", repairFile}));

TEST(Upgrade, AddsTheseColumnsAndNoOthers)
{
    const QString settings =
        u"ログプレ表示 ログプレ手前 ログプレ横位置 ログプレ縦位置 ログプレ横幅 "
        u"ログプレ縦幅 ログプレ表示列位置 "_s;
    struct Case {
        Definition (*define)(Version);
        QString settings;
        QSet<QString> others;
    };
    const Case cases[] = {
        {mainDatabase, {}, {u"共通部品.売値 long"_s}},
        {customerFile,
         settings
             + u"顧客詳細横位置 顧客詳細縦位置 顧客詳細表示列位置 件顧詳細表示列位置 "
               u"最近更新顧客表示日数 最近更新件名ログ表示日数 件名表示日 件名予定強調"_s,
         {u"ユーザー.最近更新日時 date"_s, u"件名.最近更新日時 date"_s, u"件名.予定日 text(13)"_s,
          u"４印刷件名.予定日 text(13)"_s}},
        {repairFile,
         settings
             + u"修理詳細横位置 修理詳細縦位置 修理詳細表示列位置 未収詳細表示列位置 "
               u"最近更新修理表示日数 修理超過強調 超過日数"_s,
         {u"修理.最近更新日時 date"_s}},
    };
    for (const Case& each : cases) {
        QSet<QString> expected = each.others;
        for (const QString& column : each.settings.split(u' ', Qt::SkipEmptyParts))
            expected.insert(u"設定."_s + column + u" long"_s);
        const QSet<QString> before = columnsOf(each.define(Version::V300));
        const QSet<QString> after = columnsOf(each.define(Version::V311));
        EXPECT_EQ(after - before, expected);
        EXPECT_TRUE((before - after).isEmpty());
    }
}

TEST(FirstRows, CarryTheirDefaults)
{
    using enum Version;
    const QString version = u"ﾊﾞｰｼﾞｮﾝ"_s;
    const QString info = u"バージョン情報"_s;
    const QString settings = u"設定"_s;
    struct Case {
        QList<Definition> of;
        QString table;
        QString column;
        Value value;
        int row = 1;
    };
    const QList<Definition> both{customerFile(V311), repairFile(V311)};
    const Case cases[] = {
        {{mainDatabase(V311)}, u"main"_s, u"ﾃﾞｰﾀ"_s, u"Admin"_s},
        {{mainDatabase(V311)}, u"main"_s, u"ﾊﾟｽﾜｰﾄﾞ"_s, Value()},
        {{mainDatabase(V311)}, u"main"_s, u"種類"_s, version, 5},
        {{mainDatabase(V311)}, u"main"_s, u"ﾃﾞｰﾀ"_s, u"3.1.1"_s, 5},
        {both, info, version, u"3.1.1"_s},
        {{customerFile(V300), repairFile(V300)}, info, version, u"3.0.0"_s},
        {both, u"最新発番"_s, u"カスタム検索"_s, 0},
        {both, settings, u"上"_s, 15},
        {both, settings, u"左"_s, 15},
        {both, settings, u"右"_s, 15},
        {both, settings, u"下"_s, 15},
        {both, settings, u"ログ表示数"_s, 100},
        {both, settings, u"予定表示"_s, 0},
        {both, settings, u"ログプレ横幅"_s, 9150},
        {both, settings, u"ログプレ縦幅"_s, 2085},
        {{customerFile(V311)}, settings, u"最近更新顧客表示日数"_s, 7},
        {{repairFile(V311)}, settings, u"超過日数"_s, 10},
        {{repairFile(V311)}, u"自社"_s, u"自社ID"_s, 1},
        {{repairFile(V311)}, u"５印刷ラベル２"_s, u"No"_s, 1},
    };
    for (const Case& each : cases) {
        for (const Definition& definition : each.of)
            EXPECT_EQ(seeded(definition, each.table, each.column, each.row), each.value)
                << each.table.toStdString() << ' ' << each.column.toStdString();
    }
}

} // namespace
