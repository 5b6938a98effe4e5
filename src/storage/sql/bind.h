#pragma once

#include "storage/base/error.h"
#include "storage/sql/bound.h"

#include <optional>
#include <variant>

namespace storage::sql {

// Looks the names of one statement up and fits its types together. The first fault is kept; what is
// returned after one is thrown away.
class Binder {
public:
    // `arguments`: the types of the values given for each "?".
    Binder(const QString& statement, const schema::Catalog& catalog,
           QList<ValueType> arguments = {});

    std::variant<bound::Statement, Error> bind(const ast::Statement& statement);

private:
    // What the names of an expression can mean.
    struct Scope {
        const std::vector<bound::Source>* sources = nullptr;
        bool aggregates = false; // may stand here
    };

    void fail(ErrorKind kind, int position, const QString& message);
    bool failed() const { return m_error.has_value(); }

    // bind.cpp
    const schema::Table* table(const ast::TableName& name);
    int column(const schema::Table& table, const ast::Name& name);
    bound::Statement bindStatement(const ast::Select& select);
    bound::Statement bindStatement(const ast::Insert& insert);
    bound::Statement bindStatement(const ast::Update& update);
    bound::Statement bindStatement(const ast::Delete& deletion);
    bound::Statement bindStatement(const ast::AddColumn& addition);
    bound::Statement bindStatement(const ast::DropTable& drop);
    void insertColumns(const ast::Insert& insert, const bound::Select& select,
                       bound::Insert* result);

    // bind_values.cpp
    bound::ExpressionPtr assigned(bound::ExpressionPtr value, const schema::Column& column,
                                  const std::vector<bound::Source>& sources);
    void fitSelected(bound::Select* select, bound::Insert* insert);
    bool fitsAsItIs(const bound::Expression& value, const schema::Column& column,
                    const std::vector<bound::Source>& sources);

    // bind_select.cpp
    bound::Select bindSelect(const ast::Select& select);
    bound::SelectPart bindPart(const ast::SelectPart& part);
    bound::From bindFrom(const ast::From& from, std::vector<bound::Source>* sources);
    bound::FromTerm bindTerm(const ast::FromTerm& term, std::vector<bound::Source>* sources);
    void addStar(const ast::SelectItem& item, bound::SelectPart* part);
    void addItem(const ast::SelectItem& item, bound::SelectPart* part);
    void unify(bound::Select* select, const ast::Select& written);
    bound::OrderTerm bindOrder(const ast::OrderTerm& term, const bound::Select& select);
    std::optional<size_t> outputNamed(const ast::ColumnName& name, const bound::Select& select);

    // bind_expression.cpp
    bound::ExpressionPtr bindValue(const ast::Expression& expression, const Scope& scope);
    bound::ExpressionPtr bindCondition(const ast::Expression& expression, const Scope& scope);
    bound::ExpressionPtr bindAny(const ast::Expression& expression, const Scope& scope);
    bound::ExpressionPtr node(const ast::Literal& node, int position, const Scope& scope);
    bound::ExpressionPtr node(const ast::Argument& node, int position, const Scope& scope);
    bound::ExpressionPtr node(const ast::ColumnName& node, int position, const Scope& scope);
    bound::ExpressionPtr node(const ast::Concatenation& node, int position, const Scope& scope);
    bound::ExpressionPtr node(const ast::Arithmetic& node, int position, const Scope& scope);
    bound::ExpressionPtr node(const ast::Negative& node, int position, const Scope& scope);
    bound::ExpressionPtr node(const ast::Aggregate& node, int position, const Scope& scope);
    bound::ExpressionPtr number(const ast::Expression& expression, const Scope& scope);

    // bind_condition.cpp
    bound::ExpressionPtr node(const ast::Comparison& node, int position, const Scope& scope);
    bound::ExpressionPtr node(const ast::Like& node, int position, const Scope& scope);
    bound::ExpressionPtr node(const ast::Between& node, int position, const Scope& scope);
    bound::ExpressionPtr node(const ast::In& node, int position, const Scope& scope);
    bound::ExpressionPtr node(const ast::IsNull& node, int position, const Scope& scope);
    bound::ExpressionPtr node(const ast::Not& node, int position, const Scope& scope);
    bound::ExpressionPtr node(const ast::Logic& node, int position, const Scope& scope);
    bool fitTogether(bound::Expression* left, bound::Expression* right);
    bool convertLiteral(bound::Expression* literal, bound::Type type);

    QString m_statement;
    const schema::Catalog& m_catalog;
    QList<ValueType> m_arguments;
    std::optional<Error> m_error;
};

} // namespace storage::sql
