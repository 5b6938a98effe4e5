#include "storage/schema/shared_tables.h"

// The repair data file. Days and amounts are texts: lists and searches compare them as text.
namespace storage::schema {

using namespace Qt::StringLiterals;

namespace {

QList<Table> repairTables(Version version)
{
    return {
        TableBuilder(u"修理"_s, version)
            .autoNumber(u"修理更新ID"_s)
            .longs(u"修理識別ID 修理ID"_s)
            .moments(u"更新日時"_s)
            .texts(u"状況 区分"_s)
            .days(u"受付日"_s)
            .texts(u"お客様名 会社名 メーカー名 品名 型番 受付者 担当者"_s)
            .longs(u"S印字"_s)
            .texts(u"自宅TEL 自宅住所 会社TEL 会社住所 シリアル 付属品 見積納期 故障内容"_s)
            .texts(u"受付番号 仕切 売値 入金 有無償 処置内容 備考 完了"_s)
            .days(u"完了日"_s)
            .added()
            .moments(u"最近更新日時"_s)
            .build(),
        TableBuilder(u"修理詳細"_s, version)
            .autoNumber(u"詳細更新ID"_s)
            .longs(u"詳細識別ID 詳細ID 修理ID 順位"_s)
            .texts(u"名称 部番 部品定価 部品売値 部品仕切"_s)
            .moments(u"更新日時"_s)
            .build(),
        TableBuilder(u"修理ログ"_s, version)
            .autoNumber(u"修理ログ更新ID"_s)
            .longs(u"修理ログ識別ID 修理ログID 修理ID"_s)
            .days(u"記録日"_s)
            .texts(u"ログ 記録者"_s)
            .moments(u"更新日時"_s)
            .build(),
        TableBuilder(u"修理関連ファイル"_s, version)
            .autoNumber(u"修理関連更新ID"_s)
            .longs(u"修理関連識別ID 修理関連ID 修理ID"_s)
            .texts(u"ﾌｧｲﾙ名 場所"_s)
            .moments(u"更新日時"_s)
            .build(),
        TableBuilder(u"項目内容"_s, version)
            .autoNumber(u"項目内容更新ID"_s)
            .longs(u"修理ID 修理識別ID 項目ID 内容識別ID"_s)
            .texts(u"項目内容"_s)
            .moments(u"更新日時"_s)
            .build(),
    };
}

// Staff, makers' service centres, own company.
QList<Table> referenceTables(Version version)
{
    return {
        TableBuilder(u"担当者"_s, version)
            .autoNumber(u"担当者更新ID"_s)
            .longs(u"担当識別ID 担当ID"_s)
            .texts(u"担当者 TEL E-MAIL"_s)
            .moments(u"更新日時"_s)
            .build(),
        TableBuilder(u"修理先"_s, version)
            .autoNumber(u"修理先更新ID"_s)
            .longs(u"修理先識別ID 修理先ID"_s)
            .texts(u"メーカー名 修理先 住所 TEL FAX E-MAIL 担当者 処理方法 決済方法 備考"_s)
            .moments(u"更新日時"_s)
            .build(),
        TableBuilder(u"自社"_s, version)
            .rowNumber(u"自社ID"_s)
            .texts(u"自社名 自社住所 自社TEL 自社FAX 自社MAIL 自社URL"_s)
            .moments(u"更新日時"_s)
            .build(),
    };
}

Table repairSettings(Version version)
{
    return TableBuilder(u"設定"_s, version)
        .rowNumber(u"設定ID"_s)
        .longs(
            u"修理初期ﾀﾌﾞ 修理表示方法 未収金表示方法 ログ表示方法 修理詳細表示 未収金詳細表示"_s)
        .longs(u"並べ01 並べ02 並べ03 並べ04 並べ05 並べ06 上 左 右 下"_s)
        .longs(u"修理表示数 未収金表示数 ログ表示数 予定表示 前回表示"_s)
        .moments(u"更新日時"_s)
        .added()
        .longs(
            u"ログプレ表示 ログプレ手前 ログプレ横位置 ログプレ縦位置 ログプレ横幅 ログプレ縦幅"_s)
        .longs(u"修理詳細横位置 修理詳細縦位置 修理詳細表示列位置 未収詳細表示列位置"_s)
        .longs(u"ログプレ表示列位置 最近更新修理表示日数 修理超過強調 超過日数"_s)
        .build();
}

QList<Table> repairPrintTables(Version version)
{
    return {
        printedFreeItems(version),
        TableBuilder(u"３印刷ラベル１"_s, version)
            .rowNumber(u"No"_s)
            .texts(u"項目0 項目1 項目2 項目3 価格"_s)
            .build(),
        TableBuilder(u"４印刷ログ"_s, version)
            .longs(u"上部連結 上部連結識別 順位"_s)
            .days(u"記録日"_s)
            .texts(u"記録者 ログ"_s)
            .build(),
        TableBuilder(u"５印刷ラベル２"_s, version)
            .rowNumber(u"No"_s)
            .texts(u"項目0 項目1 項目2 項目3 項目4 項目5 価格 定価 売値 仕切"_s)
            .build(),
        TableBuilder(u"６印刷修理詳細"_s, version)
            .longs(u"上部連結 上部連結識別 順位"_s)
            .texts(u"名称 部番 部品定価 部品売値 部品仕切"_s)
            .build(),
    };
}

QList<Index> repairIndexes()
{
    const QString repairs = u"修理"_s;
    const QString number = u"修理ID"_s;
    QList<Index> indexes{
        pairIndex(repairs, number, u"修理識別ID"_s),
        index(repairs, {fold(u"状況"_s), fold(u"区分"_s)}),
        index(repairs, {fold(u"入金"_s)}),
        dayIndex(repairs, u"受付日"_s, number),
        index(repairs, {plain(u"最近更新日時"_s)}),
        pairIndex(u"修理詳細"_s, number, u"詳細識別ID"_s),
        pairIndex(u"修理ログ"_s, number, u"修理ログ識別ID"_s),
        pairIndex(u"修理関連ファイル"_s, number, u"修理関連識別ID"_s),
        pairIndex(u"項目内容"_s, number, u"修理識別ID"_s),
        pairIndex(u"項目内容"_s, u"項目ID"_s, u"内容識別ID"_s),
    };
    const QStringList sorted = {u"お客様名"_s,   u"自宅TEL"_s, u"会社名"_s, u"会社TEL"_s,
                                u"メーカー名"_s, u"品名"_s,    u"型番"_s,   u"シリアル"_s,
                                u"受付者"_s,     u"担当者"_s};
    for (const QString& column : sorted)
        indexes.append(sortIndex(repairs, column, number));
    return indexes;
}

// A one-row table's row, its texts still Null.
SeedRow blankRow(const Table& table)
{
    SeedRow row{table.name(), {{table.keyColumn(), Value(1)}}};
    if (table.indexOf(u"更新日時") >= 0)
        row.values.append({u"更新日時"_s, firstMoment()});
    return row;
}

} // namespace

Definition repairFile(Version version)
{
    const Table settingsTable = repairSettings(version);
    const Table numbers = latestNumbers(
        version, u"修理 ログ 詳細 修理関連 自由項目名 予定 カスタム検索 担当者 修理先"_s);
    const QList<Table> reference = referenceTables(version);
    const QList<Table> print = repairPrintTables(version);

    const QList<Table> common = {
        freeItemNames(version), customSearches(version), schedule(version), settingsTable, numbers,
        versionTable(version),  mergeRecords(version),
    };

    Definition definition;
    definition.tables = repairTables(version) + reference + common + print;
    definition.indexes = possibleIndexes(repairIndexes() + scheduleIndexes(), definition.tables);
    // Margins in millimetres; the log preview's size in twips.
    definition.rows = {
        versionRow(version),
        latestNumbersRow(numbers),
        settingsRow(settingsTable,
                    {{u"上"_s, Value(15)},
                     {u"左"_s, Value(15)},
                     {u"右"_s, Value(15)},
                     {u"下"_s, Value(15)},
                     {u"修理表示数"_s, Value(100)},
                     {u"未収金表示数"_s, Value(100)},
                     {u"ログ表示数"_s, Value(100)},
                     {u"ログプレ表示"_s, Value(1)},
                     {u"ログプレ横幅"_s, Value(9150)},
                     {u"ログプレ縦幅"_s, Value(2085)},
                     {u"最近更新修理表示日数"_s, Value(7)},
                     {u"超過日数"_s, Value(10)}}),
        blankRow(reference.last()),
        blankRow(print.at(1)),
        blankRow(print.at(3)),
    };
    return definition;
}

} // namespace storage::schema
