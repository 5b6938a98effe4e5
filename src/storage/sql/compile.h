#pragma once

#include "storage/error.h"
#include "storage/schema/catalog.h"
#include "storage/value.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

namespace storage::sql {

class Dialect;

// What stands for a parameter: a value, or the bytes of a sort key (bound as a blob).
using Parameter = std::variant<Value, QByteArray>;

// A statement in the engine's own language with its parameters, the first being number 1.
struct Emitted {
    QString text;
    QList<Parameter> parameters;
};

struct ResultColumn {
    QString name;  // as the recordset's field is called
    QString table; // the table's name or alias that it came from, empty for an expression
    schema::ColumnType type = schema::ColumnType::Text;
};

// A SELECT by the page, in two steps: the addresses of a page's rows are found in order, for which
// an index or a sort of few columns will do, and then these rows alone are read.
struct PageStatement {
    QString head; // up to where the limit goes
    // For a search: the same as `head`, but all rows are read as they lie and those found are
    // sorted. It is far quicker than looking at the rows in order when few are found.
    QString searchHead;
    QString tail; // behind it
    QList<Parameter> parameters;
    // The first page is had as soon from the statement itself: an index gives its order.
    bool firstInOneStep = false;
};

enum class StatementKind { Rows, Write, Definition };

// A statement that was parsed, bound to a catalog and emitted for an engine.
struct Compiled {
    StatementKind kind = StatementKind::Rows;
    Emitted statement;
    // For rows: the same rows counted (one row, one column).
    Emitted count;
    // For rows with an order that come from tables one by one, where they may be many.
    std::optional<PageStatement> page;
    QList<ResultColumn> columns;
    // For rows that come from one table without grouping or union: that table's canonical name. The
    // emitted statement then carries the row's address as one more column after `columns`.
    QString updatableTable;
    // For a write into columns of which the file lists the texts: the table and these columns,
    // whose values the statement then gives back, one row for each row that it writes.
    QString writtenTable;
    QStringList listed;
    // For rows: false when the statement brings no ORDER BY of its own.
    bool ordered = false;
};

// Compiles one statement. A trailing semicolon is allowed; a second statement is refused.
std::variant<Compiled, Error> compile(const QString& statement, const schema::Catalog& catalog,
                                      const Dialect& dialect);

// The rows, but only `limit` of them from the `offset`th (from 0) on.
Emitted window(const Compiled& rows, qint64 limit, qint64 offset, const Dialect& dialect);
// The same by `searchHead`; only for rows that have one.
Emitted searchWindow(const Compiled& rows, qint64 limit, qint64 offset, const Dialect& dialect);

// Statements of a recordset that writes rows, already bound: columns by canonical name. `address`
// is the row's address as the extra column of Compiled gave it; `readStamp` is the 更新日時 that
// was read, nullopt when the table has no such column.
struct RowWrite {
    QString table;
    QList<std::pair<QString, Value>> values;
};
Emitted insertRow(const RowWrite& row, const schema::Table& table, const Dialect& dialect);
Emitted updateRow(const RowWrite& row, const schema::Table& table, const Value& address,
                  const std::optional<Value>& readStamp, const Dialect& dialect);
Emitted deleteRow(const schema::Table& table, const Value& address,
                  const std::optional<Value>& readStamp, const Dialect& dialect);

} // namespace storage::sql
