#pragma once

#include "storage/sql/ast.h"
#include "storage/sql/compile.h"
#include "storage/sql/first_characters.h"
#include "text/like.h"

#include <QList>

// A statement whose names are looked up and whose types fit together; what the emitter works from.
namespace storage::sql::bound {

enum class Type { Null, Whole, Real, Text, DateTime, Condition };

// What a comparison of two values runs over: the values, their folded text, or their sort key.
enum class Form { Plain, Fold, Key };

struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;

struct Literal {
    Value value;
};

// A value that is given when the statement is run; its type is known, and it is not Null.
struct Argument {
    int place = 0;
};

struct Column {
    qsizetype source = 0; // place among the sources of the SELECT
    int index = 0;        // place in the table
    bool isDay = false;   // schema::Column::isDay
    bool operator==(const Column&) const = default;
};

struct Concatenation {
    std::vector<ExpressionPtr> parts;
};

// The value as the column keeps it; one that it cannot keep makes the statement fail.
struct Fitted {
    ExpressionPtr operand;
    const schema::Column* column = nullptr;
};

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

struct Comparison {
    ast::ComparisonKind kind = ast::ComparisonKind::Equal;
    Form form = Form::Plain;
    ExpressionPtr left;
    ExpressionPtr right;
};

// The value lies between the two bounds, whichever of them is the lower one.
struct Between {
    Form form = Form::Plain;
    ExpressionPtr value;
    ExpressionPtr low;
    ExpressionPtr high;
    bool negated = false;
    bool inOrder = false; // low is known to be the lower one
};

struct In {
    Form form = Form::Plain;
    ExpressionPtr value;
    std::vector<ExpressionPtr> list;
    bool negated = false;
};

struct Like {
    std::vector<ExpressionPtr> parts;
    std::variant<QString, Argument> pattern;
    // What a text column must begin with to match, for the sake of its index.
    std::optional<text::LikePrefix> prefix;
};

// The text column begins with one of these characters.
struct BeginsWith {
    Column column;
    FirstCharacters characters;
};

struct IsNull {
    ExpressionPtr value;
    bool negated = false;
};

struct Not {
    ExpressionPtr operand;
};

struct Logic {
    ast::LogicKind kind = ast::LogicKind::And;
    std::vector<ExpressionPtr> operands;
};

struct Aggregate {
    ast::AggregateKind kind = ast::AggregateKind::Count;
    ExpressionPtr argument; // null for count(*)
};

struct Expression {
    Type type = Type::Null;
    int position = 0;
    std::variant<Literal, Argument, Column, Concatenation, Fitted, Arithmetic, Negative, Comparison,
                 Between, In, Like, BeginsWith, IsNull, Not, Logic, Aggregate>
        node;
};

// Whether it is a column of days, whose order is that of the folded text.
inline bool isDay(const Expression& expression)
{
    const auto* column = std::get_if<Column>(&expression.node);
    return column && column->isDay;
}

struct Source {
    const schema::Table* table = nullptr;
    QString name; // its alias, or the table's canonical name
};

struct From;
using FromTerm = std::variant<qsizetype, std::unique_ptr<From>>; // place of a source

struct JoinStep {
    ast::JoinKind kind = ast::JoinKind::Inner;
    FromTerm right;
    ExpressionPtr condition; // null for a cross join
};

struct From {
    FromTerm first;
    std::vector<JoinStep> steps;
};

struct Output {
    ExpressionPtr expression;
    ResultColumn column;
};

struct SelectPart {
    bool distinct = false;
    bool aggregated = false;
    bool unionAll = false;
    std::optional<qint64> top;
    std::vector<Source> sources;
    std::optional<From> from;
    std::vector<Output> outputs;
    ExpressionPtr where;
};

struct OrderTerm {
    std::optional<size_t> output; // place of an output column, else `expression`
    ExpressionPtr expression;
    bool descending = false;
};

struct Select {
    std::vector<SelectPart> parts;
    std::vector<OrderTerm> order;
};

struct Insert {
    const schema::Table* table = nullptr;
    std::vector<int> columns;
    std::variant<std::vector<ExpressionPtr>, Select> source;
    // For a Select, by column: its values are brought to the column's type on their way.
    std::vector<bool> fitted;
};

struct Assignment {
    int column = 0;
    ExpressionPtr value;
};

struct Update {
    Source source;
    std::vector<Assignment> assignments;
    ExpressionPtr where;
};

struct Delete {
    Source source;
    ExpressionPtr where;
};

struct CreateTable {
    schema::Table table;
};

struct AddColumn {
    const schema::Table* table = nullptr;
    schema::Column column;
};

struct DropTable {
    const schema::Table* table = nullptr;
};

using Statement = std::variant<Select, Insert, Update, Delete, AddColumn, DropTable>;

} // namespace storage::sql::bound
