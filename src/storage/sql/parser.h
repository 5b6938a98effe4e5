#pragma once

#include "storage/base/error.h"
#include "storage/sql/ast.h"
#include "storage/sql/lexer.h"

#include <optional>
#include <variant>
#include <vector>

namespace storage::sql {

// Reads one statement. It reads like the grammar: each function reads what it is named after from
// the current token on. The first fault is kept; from then on the current token is the end, so that
// all functions return soon, with nodes that may be incomplete and are thrown away.
class Parser {
public:
    explicit Parser(const QString& statement);

    std::variant<ast::Statement, Error> parse();
    // Where each "?" of the statement stands, once it is parsed.
    const std::vector<int>& arguments() const { return m_arguments; }

private:
    // Tokens
    const Token& peek() const { return m_token; }
    bool atSign(QStringView sign) const { return m_token.isSign(sign); }
    bool atKeyword(QStringView keyword) const { return m_token.isKeyword(keyword); }
    Token advance();
    bool acceptSign(QStringView sign);
    bool acceptKeyword(QStringView keyword);
    void expectSign(QStringView sign);
    void expectKeyword(QStringView keyword);
    // What follows the current token, and what follows that.
    std::pair<Token, Token> ahead() const;

    // Faults
    void fail(int position, const QString& message);
    void expected(const QString& what);
    bool failed() const { return m_error.has_value(); }

    // Counts the parentheses that are open; too many are refused before the stack is.
    class Nesting;

    // Names
    bool atName() const;
    QString name(const QString& what);
    ast::Name positionedName(const QString& what);
    ast::TableName tableName();
    ast::TableName aliasedTableName();
    void splitOrderFromName();

    // parse_expression.cpp, from the weakest operator to the strongest
    ast::ExpressionPtr condition();
    ast::ExpressionPtr logic(ast::LogicKind kind);
    ast::ExpressionPtr negation();
    ast::ExpressionPtr predicate();
    ast::ExpressionPtr predicateOf(ast::ExpressionPtr left, int position);
    ast::ExpressionPtr value();
    ast::ExpressionPtr sum();
    ast::ExpressionPtr product();
    ast::ExpressionPtr signedPrimary();
    ast::ExpressionPtr primary();
    ast::ExpressionPtr argument();
    ast::ExpressionPtr literal();
    ast::ExpressionPtr nameOrCall();
    std::vector<ast::ExpressionPtr> valueList();
    std::optional<ast::ComparisonKind> acceptComparison();

    // parse_select.cpp
    ast::Select select();
    ast::SelectPart selectPart(ast::Select* whole);
    std::vector<ast::SelectItem> selectList();
    ast::SelectItem selectItem();
    ast::From from();
    ast::FromTerm fromTerm();
    bool joinStep(ast::From* from);
    std::vector<ast::OrderTerm> orderTerms();

    // parse_change.cpp
    ast::Insert insert();
    ast::Update update();
    ast::Delete deletion();
    ast::ExpressionPtr optionalWhere();

    // parse_ddl.cpp
    ast::AddColumn addColumn();
    ast::DropTable dropTable();
    void columnType(ast::AddColumn* column);

    ast::Statement statement();

    QString m_statement;
    Lexer m_lexer;
    Token m_token;
    std::optional<Error> m_error;
    int m_depth = 0;
    std::vector<int> m_arguments;
};

class Parser::Nesting {
public:
    explicit Nesting(Parser& parser);
    ~Nesting() { --m_parser.m_depth; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

private:
    Parser& m_parser;
};

} // namespace storage::sql
