#pragma once

#include "storage/base/value.h"
#include "storage/schema/catalog.h"

#include <QString>

#include <memory>
#include <optional>
#include <variant>
#include <vector>

// A statement as it was written: names are not looked up yet. Positions are offsets into the
// statement in UTF-16 units. Operators of one rank that follow each other make one flat node, so
// that the depth of a tree is that of its parentheses.
namespace storage::sql::ast {

struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;

struct Literal {
    Value value;
};

// A "?": the value at this place, from 0, among those that are given beside the statement.
struct Argument {
    int place = 0;
};

struct ColumnName {
    QString table; // empty when it was not given
    QString column;
};

// a & b & c
struct Concatenation {
    std::vector<ExpressionPtr> parts;
};

// a + b - c, or a * b / c; the first term's sign is not used.
struct Arithmetic {
    struct Term {
        char16_t sign = u'+';
        ExpressionPtr operand;
    };
    std::vector<Term> terms;
};

struct Negative {
    ExpressionPtr operand;
};

enum class ComparisonKind { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual };

struct Comparison {
    ComparisonKind kind = ComparisonKind::Equal;
    ExpressionPtr left;
    ExpressionPtr right;
};

struct Like {
    ExpressionPtr value;
    ExpressionPtr pattern;
    bool negated = false;
};

struct Between {
    ExpressionPtr value;
    ExpressionPtr low;
    ExpressionPtr high;
    bool negated = false;
};

struct In {
    ExpressionPtr value;
    std::vector<ExpressionPtr> list;
    bool negated = false;
};

struct IsNull {
    ExpressionPtr value;
    bool negated = false;
};

struct Not {
    ExpressionPtr operand;
};

enum class LogicKind { And, Or };

struct Logic {
    LogicKind kind = LogicKind::And;
    std::vector<ExpressionPtr> operands;
};

enum class AggregateKind { Count, Sum, Max, Min };

struct Aggregate {
    AggregateKind kind = AggregateKind::Count;
    ExpressionPtr argument; // null for count(*)
};

struct Expression {
    int position = 0;
    std::variant<Literal, Argument, ColumnName, Concatenation, Arithmetic, Negative, Comparison,
                 Like, Between, In, IsNull, Not, Logic, Aggregate>
        node;
};

// A name where only a name can stand.
struct Name {
    QString text;
    int position = 0;
};

struct TableName {
    QString source; // what stands before the point: a data source outside the file
    QString name;
    QString alias;
    int position = 0;
};

struct From;

// A table or a join in parentheses.
using FromTerm = std::variant<TableName, std::unique_ptr<From>>;

enum class JoinKind { Inner, Left, Cross };

struct JoinStep {
    JoinKind kind = JoinKind::Inner;
    FromTerm right;
    ExpressionPtr condition; // null for a comma
};

struct From {
    FromTerm first;
    std::vector<JoinStep> steps;
};

struct SelectItem {
    ExpressionPtr expression; // null for * and t.*
    QString starTable;        // of t.*
    QString alias;
    int position = 0;
};

// One SELECT of a union.
struct SelectPart {
    bool distinct = false;
    std::optional<qint64> top;
    std::vector<SelectItem> items;
    std::optional<From> from;
    ExpressionPtr where;
    bool unionAll = false; // joined to the part before it by UNION ALL
};

struct OrderTerm {
    ExpressionPtr expression;
    bool descending = false;
};

struct Select {
    std::vector<SelectPart> parts;
    std::vector<OrderTerm> order;
    std::optional<TableName> into;
};

struct Insert {
    TableName table;
    std::vector<Name> columns; // empty when they were not given
    std::variant<std::vector<ExpressionPtr>, Select> source;
};

struct Assignment {
    Name column;
    ExpressionPtr value;
};

struct Update {
    TableName table;
    std::vector<Assignment> assignments;
    ExpressionPtr where;
};

struct Delete {
    TableName table;
    ExpressionPtr where;
};

struct AddColumn {
    TableName table;
    Name column;
    schema::ColumnType type = schema::ColumnType::Text;
    int maxLength = 0;
};

struct DropTable {
    TableName table;
};

using Statement = std::variant<Select, Insert, Update, Delete, AddColumn, DropTable>;

} // namespace storage::sql::ast
