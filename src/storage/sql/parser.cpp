#include "storage/sql/parser.h"

#include <array>

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

constexpr int kMaxDepth = 100;
constexpr QStringView kOrder = u"order";
constexpr qsizetype kShownLength = 30; // of a token, in a message

// Words that end a name list or an expression; as names they need brackets.
constexpr std::array<QStringView, 27> kReserved{
    u"select", u"distinct", u"from", u"where", u"order",   u"by",    u"and",    u"or",    u"not",
    u"in",     u"like",     u"is",   u"null",  u"between", u"inner", u"left",   u"right", u"join",
    u"on",     u"union",    u"as",   u"into",  u"values",  u"set",   u"having", u"group", u"desc"};

QString shown(const Token& token)
{
    if (token.text.size() <= kShownLength)
        return token.text;
    return token.text.left(kShownLength) + u"…"_s;
}

} // namespace

Parser::Nesting::Nesting(Parser& parser) : m_parser(parser)
{
    if (++m_parser.m_depth > kMaxDepth)
        m_parser.fail(m_parser.peek().position, u"式の入れ子が深すぎます。"_s);
}

Parser::Parser(const QString& statement) : m_statement(statement), m_lexer(m_statement)
{
    m_token = m_lexer.next();
}

std::variant<ast::Statement, Error> Parser::parse()
{
    ast::Statement result = statement();
    acceptSign(u";");
    if (!failed() && peek().kind != TokenKind::End)
        expected(u"文の終わり"_s);
    if (failed())
        return *m_error;
    return result;
}

ast::Statement Parser::statement()
{
    if (atKeyword(u"select"))
        return select();
    if (acceptKeyword(u"insert"))
        return insert();
    if (acceptKeyword(u"update"))
        return update();
    if (acceptKeyword(u"delete"))
        return deletion();
    if (acceptKeyword(u"alter"))
        return addColumn();
    if (acceptKeyword(u"drop"))
        return dropTable();
    expected(u"文(SELECT、INSERT、UPDATE、DELETE、ALTER TABLE、DROP TABLE)"_s);
    return ast::Select{};
}

Token Parser::advance()
{
    Token token = m_token;
    if (!failed())
        m_token = m_lexer.next();
    return token;
}

bool Parser::acceptSign(QStringView sign)
{
    const bool there = atSign(sign);
    if (there)
        advance();
    return there;
}

bool Parser::acceptKeyword(QStringView keyword)
{
    const bool there = atKeyword(keyword);
    if (there)
        advance();
    return there;
}

void Parser::expectSign(QStringView sign)
{
    if (!acceptSign(sign))
        expected(u"「"_s + sign.toString() + u"」"_s);
}

void Parser::expectKeyword(QStringView keyword)
{
    if (!acceptKeyword(keyword))
        expected(u"「"_s + keyword.toString().toUpper() + u"」"_s);
}

std::pair<Token, Token> Parser::ahead() const
{
    if (failed())
        return {};
    Lexer lexer = m_lexer;
    Token first = lexer.next();
    Token second = lexer.next();
    return {std::move(first), std::move(second)};
}

void Parser::fail(int position, const QString& message)
{
    if (failed())
        return;
    m_error = Error{ErrorKind::Syntax, message, position, m_statement};
    m_token = Token{TokenKind::End, QString(), position, position};
}

void Parser::expected(const QString& what)
{
    if (m_token.kind == TokenKind::Bad)
        fail(m_token.position, m_token.text);
    else if (m_token.kind == TokenKind::End)
        fail(m_token.position, what + u"が必要なところで文が終わっています。"_s);
    else
        fail(m_token.position,
             what + u"が必要なところに「"_s + shown(m_token) + u"」があります。"_s);
}

bool Parser::atName() const
{
    if (m_token.kind == TokenKind::QuotedName)
        return true;
    if (m_token.kind != TokenKind::Name)
        return false;
    for (const QStringView word : kReserved) {
        if (atKeyword(word))
            return false;
    }
    return true;
}

QString Parser::name(const QString& what)
{
    if (!atName()) {
        expected(what);
        return QString();
    }
    return advance().text;
}

ast::Name Parser::positionedName(const QString& what)
{
    const int position = peek().position;
    return ast::Name{name(what), position};
}

ast::TableName Parser::tableName()
{
    ast::TableName table;
    table.position = peek().position;
    table.name = name(u"表の名前"_s);
    if (acceptSign(u".")) {
        table.source = table.name;
        table.name = name(u"表の名前"_s);
    }
    return table;
}

// A table's name that touches the ORDER behind it: no name can stand before BY, so what ends in
// ORDER there is two words.
void Parser::splitOrderFromName()
{
    if (m_token.kind != TokenKind::Name || m_token.text.size() <= kOrder.size()
        || !m_token.text.endsWith(kOrder, Qt::CaseInsensitive) || !ahead().first.isKeyword(u"by"))
        return;
    m_token.text.chop(kOrder.size());
    m_token.end -= static_cast<int>(kOrder.size());
    m_lexer.splitName(m_token.end);
}

ast::TableName Parser::aliasedTableName()
{
    splitOrderFromName();
    ast::TableName table = tableName();
    if (acceptKeyword(u"as") || atName())
        table.alias = name(u"表の別名"_s);
    return table;
}

} // namespace storage::sql
