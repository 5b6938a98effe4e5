#pragma once

#include "storage/engine/engine.h"
#include "storage/schema/column_value.h"
#include "storage/schema/definitions.h"
#include "storage/sql/compile.h"

#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

// Data files of a few rows, the same in each run, that statements are run on.
namespace fuzz {

using namespace Qt::StringLiterals;

struct Database {
    std::unique_ptr<storage::engine::Session> session;
    storage::schema::Catalog catalog;
};

[[noreturn]] inline void give(const QString& message)
{
    std::fprintf(stderr, "%s\n", message.toUtf8().constData());
    std::abort();
}

// Texts that are nearly the same, that an index could miss, and that are dates and numbers too.
inline QString someText(QRandomGenerator& random)
{
    static const QStringList texts{QString(),
                                   u"あ"_s,
                                   u"ア"_s,
                                   u"ｱｵｷ"_s,
                                   u"ｶ"_s,
                                   u"が"_s,
                                   u"ｶﾞ"_s,
                                   u"カー"_s,
                                   u"ヴ"_s,
                                   u"゛"_s,
                                   u"ー"_s,
                                   u"ABC"_s,
                                   u"ａｂｃ"_s,
                                   u"Z"_s,
                                   u"5"_s,
                                   u"１０％"_s,
                                   u"2.5"_s,
                                   u"一"_s,
                                   u"㈱甲"_s,
                                   u"𠮷"_s,
                                   u"😀"_s,
                                   u"~"_s,
                                   u"[a]"_s,
                                   u"O'Neil"_s,
                                   u"続行"_s,
                                   u"完了"_s,
                                   u"持込"_s,
                                   u"未入"_s,
                                   u"2026/11/22(日)"_s,
                                   u"2026/11/22"_s,
                                   u"\u3099"_s,
                                   u"が\u309a"_s,
                                   u"a\r\nb"_s,
                                   u"\uffff"_s,
                                   u"ン"_s};
    return texts[random.bounded(static_cast<int>(texts.size()))];
}

inline storage::Value someValue(const storage::schema::Column& column, QRandomGenerator& random)
{
    using storage::Value;
    using storage::schema::ColumnType;
    switch (column.type) {
    case ColumnType::Long:
        return Value(random.bounded(-2, 6));
    case ColumnType::Real:
        return Value(random.bounded(-4, 12) / 4.0);
    case ColumnType::DateTime:
        return Value(u"2026/11/%1 10:00:00"_s.arg(random.bounded(20, 24)));
    default:
        return Value(someText(random));
    }
}

inline void fill(Database& database, const storage::schema::Table& table, QRandomGenerator& random)
{
    constexpr int rows = 12;
    for (int i = 0; i < rows; ++i) {
        storage::sql::RowWrite row{table.name(), {}, {}};
        for (const storage::schema::Column& column : table.columns()) {
            const storage::Value value = someValue(column, random);
            const auto fitting = storage::fitColumn(value, column);
            if (column.name != table.keyColumn() && fitting && random.bounded(6) > 0)
                row.values.append({column.name, *fitting});
        }
        const auto statement = storage::sql::insertRow(row, table, database.session->dialect());
        if (const auto error = database.session->run(statement, nullptr))
            give(u"no row: "_s + error->message);
    }
}

inline Database made(const QString& name, const storage::schema::Definition& definition)
{
    static const QTemporaryDir folder;
    Database database;
    storage::Error error;
    QRandomGenerator random(20261122);
    database.session = storage::engine::embedded().create(folder.filePath(name), u"x"_s, &error);
    if (!database.session || database.session->upkeep().create(definition)
        || database.session->readCatalog(&database.catalog) || database.session->begin(0))
        give(u"no database: "_s + error.message);
    for (const storage::schema::Table& table : definition.tables)
        fill(database, table, random);
    if (database.session->commit(0))
        give(u"no rows"_s);
    return database;
}

} // namespace fuzz
