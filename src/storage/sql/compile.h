#pragma once

#include "storage/base/error.h"
#include "storage/base/value.h"
#include "storage/schema/catalog.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <variant>

namespace storage::sql {

class Dialect;
struct KnownFinding;
namespace bound {
struct Select;
}

// What becomes of a value that is given for a "?" on its way to the engine.
enum class SlotForm {
    Plain,
    Folded,  // its folded text, as literals are folded in the program
    Pattern, // a Like pattern, looked at before it is used
    Fitted   // brought to the type of the column that it is written to
};

// The place of a value that is given when the statement is run.
struct Slot {
    int argument = 0; // its "?", from 0
    SlotForm form = SlotForm::Plain;
    schema::Column column; // for Fitted
};

// What stands for a parameter: a value, the bytes of a sort key (bound as a blob), or a value that
// fill() puts there before the statement reaches the engine.
using Parameter = std::variant<Value, QByteArray, Slot>;

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

enum class StatementKind { Rows, Write, Definition };

// A statement that was parsed, bound to a catalog and emitted for an engine.
struct Compiled {
    StatementKind kind = StatementKind::Rows;
    Emitted statement;
    // For rows: the same rows counted (one row, one column).
    Emitted count;
    // For rows: what they were emitted from, with the tables that it speaks of (see finding.h).
    std::shared_ptr<const bound::Select> select;
    schema::Catalog tables;
    // How they are found, once somebody has asked; shared by the copies that have no arguments.
    std::shared_ptr<KnownFinding> known;
    QList<Value> arguments; // the values that fill() has put in their places
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
    // For rows: they are those of one record, found by its number and mark, and so they are few.
    bool ofOneRecord = false;
};

// Compiles one statement. A trailing semicolon is allowed; a second statement is refused.
// `arguments` are the types of the values that will be given for each "?"; State when they are not
// as many as the statement asks for.
std::variant<Compiled, Error> compile(const QString& statement, const schema::Catalog& catalog,
                                      const Dialect& dialect,
                                      const QList<ValueType>& arguments = {});

// Puts the values, of the types compiled for, in the places kept for them. Fails with Type when one
// does not fit the column that it is written to, with Syntax when it is no Like pattern.
std::optional<Error> fill(Compiled* compiled, const QList<Value>& arguments,
                          const Dialect& dialect);
// The same for parameters alone.
std::optional<Error> fill(QList<Parameter>* parameters, const QList<Value>& arguments,
                          const Dialect& dialect);

// The rows, but only `limit` of them from the `offset`th (from 0) on.
Emitted window(const Compiled& rows, qint64 limit, qint64 offset, const Dialect& dialect);
// Statements of a recordset that writes rows, already bound: columns by canonical name. `address`
// is the row's address as the extra column of Compiled gave it; `readStamp` is the 更新日時 that
// was read, nullopt when the table has no such column.
struct RowWrite {
    QString table;
    QList<std::pair<QString, Value>> values;
    QStringList returned; // the statement gives these columns of the row it wrote, then its address
};
Emitted insertRow(const RowWrite& row, const schema::Table& table, const Dialect& dialect);
Emitted updateRow(const RowWrite& row, const schema::Table& table, const Value& address,
                  const std::optional<Value>& readStamp, const Dialect& dialect);
Emitted deleteRow(const schema::Table& table, const Value& address,
                  const std::optional<Value>& readStamp, const Dialect& dialect);

} // namespace storage::sql
