#include "storage/schema/shared_tables.h"

namespace storage::schema {

using namespace Qt::StringLiterals;

namespace {

// A one-row table's row: 1 as its number, 0 in its other whole-number columns.
SeedRow rowOfZeros(const Table& table)
{
    SeedRow row{table.name(), {}};
    for (const Column& column : table.columns()) {
        if (column.name == table.keyColumn())
            row.values.append({column.name, Value(1)});
        else if (column.type == ColumnType::DateTime)
            row.values.append({column.name, firstMoment()});
        else
            row.values.append({column.name, Value(0)});
    }
    return row;
}

} // namespace

Table freeItemNames(Version version)
{
    return TableBuilder(u"自由項目名"_s, version)
        .autoNumber(u"項目更新ID"_s)
        .longs(u"項目識別ID 項目ID"_s)
        .texts(u"項目名"_s)
        .longs(u"順位"_s)
        .texts(u"通常表示 印字表示"_s)
        .moments(u"更新日時"_s)
        .build();
}

Table customSearches(Version version)
{
    return TableBuilder(u"カスタム検索"_s, version)
        .autoNumber(u"カスタム検索更新ID"_s)
        .longs(u"カスタム検索識別ID カスタム検索ID"_s)
        .texts(u"種別 文字列"_s)
        .longs(u"順位"_s)
        .moments(u"更新日時"_s)
        .build();
}

Table schedule(Version version)
{
    return TableBuilder(u"予定"_s, version)
        .autoNumber(u"予定更新ID"_s)
        .longs(u"予定識別ID 予定ID"_s)
        .days(u"日付"_s)
        .texts(u"時刻 予定"_s)
        .moments(u"更新日時"_s)
        .build();
}

Table mergeRecords(Version version)
{
    return TableBuilder(u"コンバート情報"_s, version)
        .longs(u"ｺﾝﾊﾞｰﾄ後識別ID ｺﾝﾊﾞｰﾄ元ﾃﾞｰﾀNo"_s)
        .texts(u"ｺﾝﾊﾞｰﾄ元ﾃﾞｰﾀ名"_s)
        .moments(u"ｺﾝﾊﾞｰﾄ日時"_s)
        .build();
}

Table versionTable(Version version)
{
    return TableBuilder(u"バージョン情報"_s, version)
        .rowNumber(u"No"_s)
        .texts(u"ﾊﾞｰｼﾞｮﾝ"_s)
        .build();
}

Table printedFreeItems(Version version)
{
    return TableBuilder(u"２印刷自由項目内容"_s, version)
        .longs(u"上部連結 上部連結識別 順位"_s)
        .texts(u"印刷項目1 印刷内容1 印刷項目2 印刷内容2 印刷項目3 印刷内容3"_s)
        .longs(u"下部連結 下部連結識別"_s)
        .build();
}

Table latestNumbers(Version version, const QString& counters)
{
    return TableBuilder(u"最新発番"_s, version)
        .rowNumber(u"発番ID"_s)
        .longs(counters)
        .moments(u"更新日時"_s)
        .build();
}

QList<Index> scheduleIndexes()
{
    return {index(u"予定"_s, {fold(u"日付"_s), key(u"時刻"_s)})};
}

SeedRow versionRow(Version version)
{
    const QString name = version == Version::V300 ? u"3.0.0"_s : u"3.1.1"_s;
    return {u"バージョン情報"_s, {{u"No"_s, Value(1)}, {u"ﾊﾞｰｼﾞｮﾝ"_s, Value(name)}}};
}

SeedRow latestNumbersRow(const Table& table)
{
    return rowOfZeros(table);
}

SeedRow settingsRow(const Table& table, const QList<std::pair<QString, Value>>& values)
{
    SeedRow row = rowOfZeros(table);
    for (const auto& [column, value] : values) {
        const int position = table.indexOf(column);
        if (position >= 0)
            row.values[position].second = value;
    }
    return row;
}

} // namespace storage::schema
