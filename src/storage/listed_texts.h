#pragma once

#include "storage/base/error.h"
#include "storage/schema/catalog.h"
#include "storage/sql/compile.h"

#include <QSet>
#include <QStringList>

#include <optional>

namespace storage {

namespace engine {
class Session;
}

// What one connection adds to the lists of the different texts that columns hold
// (schema::Column::isListed). A text enters its list in the transaction of the row that brings it,
// which the caller has begun, and stays in it: that the last row with it went is not noticed.
class ListedTexts {
public:
    // Of one row's values, by canonical column name.
    std::optional<Error> add(engine::Session& session, const schema::Table& table,
                             const QList<std::pair<QString, Value>>& values);
    // Runs a statement that writes such columns (sql::Compiled::listed).
    std::optional<Error> run(engine::Session& session, const sql::Compiled& statement,
                             qint64* affected);
    // The file may no longer hold what was added: a transaction was undone.
    void forget() { m_known.clear(); }

    // All texts of a column in order, from its list or, where the file keeps none, from its rows.
    static std::optional<Error> read(engine::Session& session, const schema::Table& table,
                                     const schema::Column& column, QStringList* texts);

private:
    std::optional<Error> add(engine::Session& session, const QString& table, const QString& column,
                             const Value& text);

    QSet<QStringList> m_known; // table, column and text
};

} // namespace storage
