#include "storage/sql/parser.h"

#include "text/dates.h"

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

template <typename Node> ast::ExpressionPtr make(int position, Node node)
{
    return std::make_unique<ast::Expression>(ast::Expression{position, std::move(node)});
}

constexpr std::array<std::pair<QStringView, ast::ComparisonKind>, 7> kComparisons{
    std::pair{u"=", ast::ComparisonKind::Equal},
    std::pair{u"<>", ast::ComparisonKind::NotEqual},
    std::pair{u"!=", ast::ComparisonKind::NotEqual},
    std::pair{u"<", ast::ComparisonKind::Less},
    std::pair{u"<=", ast::ComparisonKind::LessOrEqual},
    std::pair{u">", ast::ComparisonKind::Greater},
    std::pair{u">=", ast::ComparisonKind::GreaterOrEqual}};

constexpr std::array<std::pair<QStringView, ast::AggregateKind>, 4> kAggregates{
    std::pair{u"count", ast::AggregateKind::Count}, std::pair{u"sum", ast::AggregateKind::Sum},
    std::pair{u"max", ast::AggregateKind::Max}, std::pair{u"min", ast::AggregateKind::Min}};

} // namespace

ast::ExpressionPtr Parser::condition()
{
    return logic(ast::LogicKind::Or);
}

ast::ExpressionPtr Parser::logic(ast::LogicKind kind)
{
    const int position = peek().position;
    const bool isOr = kind == ast::LogicKind::Or;
    const QStringView keyword = isOr ? QStringView(u"or") : QStringView(u"and");
    const auto operand = [&] { return isOr ? logic(ast::LogicKind::And) : negation(); };
    ast::ExpressionPtr first = operand();
    if (!atKeyword(keyword))
        return first;
    ast::Logic node{kind, {}};
    node.operands.push_back(std::move(first));
    while (acceptKeyword(keyword))
        node.operands.push_back(operand());
    return make(position, std::move(node));
}

ast::ExpressionPtr Parser::negation()
{
    const int position = peek().position;
    if (!acceptKeyword(u"not"))
        return predicate();
    const Nesting nesting(*this);
    return make(position, ast::Not{negation()});
}

ast::ExpressionPtr Parser::predicate()
{
    const int position = peek().position;
    return predicateOf(value(), position);
}

ast::ExpressionPtr Parser::predicateOf(ast::ExpressionPtr left, int position)
{
    if (const auto kind = acceptComparison())
        return make(position, ast::Comparison{*kind, std::move(left), value()});
    if (acceptKeyword(u"is")) {
        const bool negated = acceptKeyword(u"not");
        expectKeyword(u"null");
        return make(position, ast::IsNull{std::move(left), negated});
    }
    const bool negated = acceptKeyword(u"not");
    if (acceptKeyword(u"like"))
        return make(position, ast::Like{std::move(left), value(), negated});
    if (acceptKeyword(u"between")) {
        ast::ExpressionPtr low = value();
        expectKeyword(u"and");
        return make(position, ast::Between{std::move(left), std::move(low), value(), negated});
    }
    if (acceptKeyword(u"in"))
        return make(position, ast::In{std::move(left), valueList(), negated});
    if (negated)
        expected(u"「LIKE」「BETWEEN」「IN」のどれか"_s);
    return left;
}

std::optional<ast::ComparisonKind> Parser::acceptComparison()
{
    for (const auto& [sign, kind] : kComparisons) {
        if (acceptSign(sign))
            return kind;
    }
    return std::nullopt;
}

ast::ExpressionPtr Parser::value()
{
    const int position = peek().position;
    ast::ExpressionPtr first = sum();
    if (!atSign(u"&"))
        return first;
    ast::Concatenation node;
    node.parts.push_back(std::move(first));
    while (acceptSign(u"&"))
        node.parts.push_back(sum());
    return make(position, std::move(node));
}

ast::ExpressionPtr Parser::sum()
{
    const int position = peek().position;
    ast::ExpressionPtr first = product();
    if (!atSign(u"+") && !atSign(u"-"))
        return first;
    ast::Arithmetic node;
    node.terms.push_back({u'+', std::move(first)});
    while (atSign(u"+") || atSign(u"-")) {
        const char16_t sign = advance().text[0].unicode();
        node.terms.push_back({sign, product()});
    }
    return make(position, std::move(node));
}

ast::ExpressionPtr Parser::product()
{
    const int position = peek().position;
    ast::ExpressionPtr first = signedPrimary();
    if (!atSign(u"*") && !atSign(u"/"))
        return first;
    ast::Arithmetic node;
    node.terms.push_back({u'*', std::move(first)});
    while (atSign(u"*") || atSign(u"/")) {
        const char16_t sign = advance().text[0].unicode();
        node.terms.push_back({sign, signedPrimary()});
    }
    return make(position, std::move(node));
}

ast::ExpressionPtr Parser::signedPrimary()
{
    const int position = peek().position;
    if (!atSign(u"-") && !atSign(u"+"))
        return primary();
    const bool negative = advance().text == u"-";
    const Nesting nesting(*this);
    ast::ExpressionPtr operand = signedPrimary();
    return negative ? make(position, ast::Negative{std::move(operand)}) : std::move(operand);
}

ast::ExpressionPtr Parser::primary()
{
    if (acceptSign(u"(")) {
        const Nesting nesting(*this);
        ast::ExpressionPtr inner = condition();
        expectSign(u")");
        return inner;
    }
    if (atName())
        return nameOrCall();
    return atSign(u"?") ? argument() : literal();
}

ast::ExpressionPtr Parser::argument()
{
    const int position = advance().position;
    m_arguments.push_back(position);
    return make(position, ast::Argument{static_cast<int>(m_arguments.size()) - 1});
}

ast::ExpressionPtr Parser::literal()
{
    const int position = peek().position;
    if (acceptKeyword(u"null"))
        return make(position, ast::Literal{Value()});
    switch (peek().kind) {
    case TokenKind::Text:
        return make(position, ast::Literal{Value(advance().text)});
    case TokenKind::Real:
        return make(position, ast::Literal{Value(advance().text.toDouble())});
    case TokenKind::Whole: {
        const QString digits = advance().text;
        bool fits = false;
        const qint64 number = digits.toLongLong(&fits);
        return make(position, ast::Literal{fits ? Value(number) : Value(digits.toDouble())});
    }
    case TokenKind::DateTime: {
        const auto moment = text::parseDateLiteral(advance().text);
        if (!moment)
            fail(position, u"日付として読めません。"_s);
        return make(position, ast::Literal{moment ? Value(*moment) : Value()});
    }
    default:
        expected(u"値か列の名前"_s);
        return make(position, ast::Literal{});
    }
}

ast::ExpressionPtr Parser::nameOrCall()
{
    const Token first = advance();
    if (first.kind == TokenKind::Name && atSign(u"(")) {
        for (const auto& [word, kind] : kAggregates) {
            if (!first.isKeyword(word))
                continue;
            const Nesting nesting(*this);
            advance();
            ast::Aggregate node{kind, nullptr};
            if (kind != ast::AggregateKind::Count || !acceptSign(u"*"))
                node.argument = value();
            expectSign(u")");
            return make(first.position, std::move(node));
        }
        fail(first.position, u"関数「"_s + first.text.left(30) + u"」は使えません。"_s);
    }
    if (!acceptSign(u"."))
        return make(first.position, ast::ColumnName{QString(), first.text});
    return make(first.position, ast::ColumnName{first.text, name(u"列の名前"_s)});
}

std::vector<ast::ExpressionPtr> Parser::valueList()
{
    std::vector<ast::ExpressionPtr> list;
    expectSign(u"(");
    const Nesting nesting(*this);
    do
        list.push_back(value());
    while (acceptSign(u","));
    expectSign(u")");
    return list;
}

} // namespace storage::sql
