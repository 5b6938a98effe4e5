#include "storage/schema/shared_tables.h"

// The customer data file. Numbers and origin marks are whole numbers; days are texts of thirteen
// characters, times of day texts of five. Prices are texts: they are kept as they were typed.
namespace storage::schema {

using namespace Qt::StringLiterals;

namespace {

// Customers, their cases and the logs of these.
QList<Table> recordTables(Version version)
{
    return {
        TableBuilder(u"ユーザー"_s, version)
            .autoNumber(u"ﾕｰｻﾞｰ更新ID"_s)
            .longs(u"ﾕｰｻﾞｰ識別ID ﾕｰｻﾞｰID"_s)
            .texts(u"表示名ﾌﾘｶﾞﾅ 表示名 ﾕｰｻﾞｰ名ﾌﾘｶﾞﾅ ﾕｰｻﾞｰ名 自宅TEL 自宅FAX 自宅住所"_s)
            .texts(u"会社名ﾌﾘｶﾞﾅ 会社名 部署 会社TEL 会社FAX 会社住所 E-MAIL URL 備考"_s)
            .longs(u"Y印字"_s)
            .moments(u"更新日時"_s)
            .added()
            .moments(u"最近更新日時"_s)
            .build(),
        TableBuilder(u"件名"_s, version)
            .autoNumber(u"件名更新ID"_s)
            .longs(u"件名識別ID ユーザーID 件名ID"_s)
            .days(u"登録日"_s)
            .texts(u"件名 備考 判定"_s)
            .days(u"完了日"_s)
            .longs(u"K印字"_s)
            .moments(u"更新日時"_s)
            .added()
            .moments(u"最近更新日時"_s)
            .days(u"予定日"_s, 13)
            .build(),
        TableBuilder(u"ログ"_s, version)
            .autoNumber(u"ログ更新ID"_s)
            .longs(u"ログ識別ID ユーザーID 件名ID ログID"_s)
            .days(u"登録日"_s)
            .listedTexts(u"記録者"_s)
            .texts(u"Rログ"_s)
            .moments(u"更新日時"_s)
            .build(),
    };
}

QList<Table> deliveryTables(Version version)
{
    return {
        TableBuilder(u"納品リスト"_s, version)
            .autoNumber(u"納品更新ID"_s)
            .longs(u"納品識別ID ユーザーID 納品ID"_s)
            .days(u"納入日"_s)
            .texts(u"ﾒｰｶｰ 品名 型番 ｼﾘｱﾙ 定価 売値 仕切 備考"_s)
            .moments(u"更新日時"_s)
            .build(),
        TableBuilder(u"リースリスト"_s, version)
            .autoNumber(u"ﾘｰｽ更新ID"_s)
            .longs(u"ﾘｰｽ識別ID ﾘｰｽID 納品ID ユーザーID"_s)
            .texts(u"ﾘｰｽ名"_s)
            .days(u"開始日 終了日"_s)
            .texts(u"月々支払 備考"_s)
            .moments(u"更新日時"_s)
            .build(),
    };
}

// What hangs on customers and cases.
QList<Table> attachmentTables(Version version)
{
    return {
        TableBuilder(u"ユーザー関連ファイル"_s, version)
            .autoNumber(u"ﾕｰｻﾞｰ関連更新ID"_s)
            .longs(u"ﾕｰｻﾞｰ関連識別ID ﾕｰｻﾞｰ関連ID ﾕｰｻﾞｰID"_s)
            .texts(u"ﾌｧｲﾙ名 場所"_s)
            .moments(u"更新日時"_s)
            .build(),
        TableBuilder(u"件名関連ファイル"_s, version)
            .autoNumber(u"件名関連更新ID"_s)
            .longs(u"件名関連識別ID 件名関連ID 件名ID ユーザーID"_s)
            .texts(u"ﾌｧｲﾙ名 場所"_s)
            .moments(u"更新日時"_s)
            .build(),
        TableBuilder(u"項目内容"_s, version)
            .autoNumber(u"項目内容更新ID"_s)
            .longs(u"内容識別ID 項目ID ユーザーID ﾕｰｻﾞｰ識別ID"_s)
            .texts(u"項目内容"_s)
            .moments(u"更新日時"_s)
            .build(),
    };
}

Table customerSettings(Version version)
{
    return TableBuilder(u"設定"_s, version)
        .rowNumber(u"設定ID"_s)
        .longs(u"顧客初期ﾀﾌﾞ 顧客表示方法 件名表示方法 ログ表示方法 顧客詳細表示 件名詳細表示"_s)
        .longs(u"並べ01 並べ02 並べ03 並べ04 並べ05 並べ06 上 左 右 下"_s)
        .longs(u"顧客表示数 件名表示数 ログ表示数 予定表示 前回表示"_s)
        .moments(u"更新日時"_s)
        .added()
        .longs(
            u"ログプレ表示 ログプレ手前 ログプレ横位置 ログプレ縦位置 ログプレ横幅 ログプレ縦幅"_s)
        .longs(u"顧客詳細横位置 顧客詳細縦位置 顧客詳細表示列位置 件顧詳細表示列位置"_s)
        .longs(u"ログプレ表示列位置 最近更新顧客表示日数 最近更新件名ログ表示日数"_s)
        .longs(u"件名表示日 件名予定強調"_s)
        .build();
}

QList<Table> customerPrintTables(Version version)
{
    return {
        printedFreeItems(version),
        TableBuilder(u"３印刷納品"_s, version)
            .longs(u"上部連結 上部連結識別 順位"_s)
            .days(u"納入日"_s)
            .texts(u"ﾒｰｶｰ 品名 型番 ｼﾘｱﾙ 定価 売値 仕切 備考"_s)
            .texts(u"リース名"_s)
            .days(u"開始日 終了日"_s)
            .texts(u"月々支払 備考2"_s)
            .longs(u"下部連結 下部連結識別"_s)
            .build(),
        TableBuilder(u"４印刷件名"_s, version)
            .longs(u"上部連結 上部連結識別 件名ID 件名識別ID"_s)
            .days(u"登録日"_s)
            .texts(u"件名 判定"_s)
            .days(u"完了日"_s)
            .longs(u"下部連結 下部連結識別"_s)
            .added()
            .days(u"予定日"_s, 13)
            .build(),
    };
}

QList<Index> customerIndexes()
{
    const QString customers = u"ユーザー"_s;
    const QString customer = u"ﾕｰｻﾞｰID"_s;
    const QString reading = u"表示名ﾌﾘｶﾞﾅ"_s;
    return {
        pairIndex(customers, customer, u"ﾕｰｻﾞｰ識別ID"_s),
        index(customers, {key(reading), plain(customer), fold(reading)}),
        // The case list is ordered by it and goes on to the cases of each.
        index(customers, {key(u"表示名"_s), plain(customer), plain(u"ﾕｰｻﾞｰ識別ID"_s)}),
        sortIndex(customers, u"E-MAIL"_s, customer),
        sortIndex(customers, u"自宅TEL"_s, customer),
        sortIndex(customers, u"会社TEL"_s, customer),
        index(customers, {plain(u"最近更新日時"_s)}),
        pairIndex(u"納品リスト"_s, u"納品ID"_s, u"納品識別ID"_s),
        pairIndex(u"納品リスト"_s, u"ユーザーID"_s, u"納品識別ID"_s),
        pairIndex(u"リースリスト"_s, u"納品ID"_s, u"ﾘｰｽ識別ID"_s),
        pairIndex(u"リースリスト"_s, u"ユーザーID"_s, u"ﾘｰｽ識別ID"_s),
        index(u"リースリスト"_s, {fold(u"終了日"_s)}),
        pairIndex(u"ユーザー関連ファイル"_s, u"ﾕｰｻﾞｰ関連ID"_s, u"ﾕｰｻﾞｰ関連識別ID"_s),
        pairIndex(u"ユーザー関連ファイル"_s, u"ﾕｰｻﾞｰID"_s, u"ﾕｰｻﾞｰ関連識別ID"_s),
        pairIndex(u"項目内容"_s, u"ユーザーID"_s, u"ﾕｰｻﾞｰ識別ID"_s),
        pairIndex(u"項目内容"_s, u"項目ID"_s, u"内容識別ID"_s),
    };
}

QList<Index> caseIndexes()
{
    const QString cases = u"件名"_s;
    const QString number = u"件名ID"_s;
    const QString mark = u"件名識別ID"_s;
    const QString owner = u"ユーザーID"_s;
    // The case list joins each case to its customer: with mark and owner in the index, the pages
    // that are skipped cost no look into the table.
    const QList<IndexPart> toOwner = {plain(number), plain(mark), plain(owner)};
    QList<Index> indexes{
        pairIndex(cases, number, mark),
        pairIndex(cases, owner, mark),
        index(cases, QList{fold(u"判定"_s), fold(u"登録日"_s)} + toOwner),
        index(cases, QList{fold(u"登録日"_s)} + toOwner),
        index(cases, QList{fold(u"予定日"_s)} + toOwner),
        index(cases, {plain(u"最近更新日時"_s)}),
        pairIndex(u"ログ"_s, number, u"ログ識別ID"_s),
        pairIndex(u"ログ"_s, owner, u"ログ識別ID"_s),
        pairIndex(u"件名関連ファイル"_s, u"件名関連ID"_s, u"件名関連識別ID"_s),
        pairIndex(u"件名関連ファイル"_s, number, u"件名関連識別ID"_s),
        pairIndex(u"件名関連ファイル"_s, owner, u"件名関連識別ID"_s),
    };
    for (const QString& column : {u"件名"_s, u"備考"_s, u"判定"_s})
        indexes.append(index(cases, QList{key(column)} + toOwner));
    return indexes;
}

} // namespace

Definition customerFile(Version version)
{
    const Table settingsTable = customerSettings(version);
    const Table numbers = latestNumbers(
        version,
        u"ユーザー 件名 ログ 納品 リース ユーザー関連 件名関連 自由項目名 予定 カスタム検索"_s);

    const QList<Table> common = {
        freeItemNames(version), customSearches(version), schedule(version), settingsTable, numbers,
        versionTable(version),  mergeRecords(version),
    };

    Definition definition;
    definition.tables = recordTables(version) + deliveryTables(version) + attachmentTables(version)
        + common + customerPrintTables(version);
    definition.indexes =
        possibleIndexes(customerIndexes() + caseIndexes() + scheduleIndexes(), definition.tables);
    // Margins in millimetres; the log preview's size in twips.
    definition.rows = {
        versionRow(version),
        latestNumbersRow(numbers),
        settingsRow(settingsTable,
                    {{u"上"_s, Value(15)},
                     {u"左"_s, Value(15)},
                     {u"右"_s, Value(15)},
                     {u"下"_s, Value(15)},
                     {u"顧客表示数"_s, Value(100)},
                     {u"件名表示数"_s, Value(100)},
                     {u"ログ表示数"_s, Value(100)},
                     {u"ログプレ表示"_s, Value(1)},
                     {u"ログプレ横幅"_s, Value(9150)},
                     {u"ログプレ縦幅"_s, Value(2085)},
                     {u"最近更新顧客表示日数"_s, Value(7)},
                     {u"最近更新件名ログ表示日数"_s, Value(7)}}),
    };
    return definition;
}

} // namespace storage::schema
